#pragma once

#include "store/FormViews.h"

#include <QListWidget>

/// A list of names that tells of every click, on its empty part as well, where an only selection
/// is lost, and of the right button.
class ReportList : public QListWidget, public NameList {
    Q_OBJECT

public:
    explicit ReportList(QWidget* parent = nullptr);

    void Clear() override { clear(); }
    void AddItem(const QString& text) override;

signals:
    /// A click anywhere in the list, by whichever button since each selects, or another selection
    /// by keys.
    void Clicked();
    /// The right button went down anywhere in the list. What it went down on is selected then, and
    /// alone unless it was selected before. The Delete key and the key for a context menu tell the
    /// same of the selection as it is.
    void RightPressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool pressed_ = false;
};
