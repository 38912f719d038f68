#pragma once

#include "store/CopySummary.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

/// Shows the copies of earlier days, tells what is otherwise in the one chosen than now, and puts
/// it back.
class RestoreWindow : public QWidget {
    Q_OBJECT

public:
    RestoreWindow();

private:
    struct Entry {
        QString Name;
        CopySummary Holds;
    };

    void MakeControls();
    /// Looks at the copies and at what there is now.
    void Refresh();
    void ShowChosen();
    void PutBack_Click();
    const Entry* Chosen() const;
    /// What putting this copy back changes, in a sentence.
    QString Difference(const Entry& entry) const;

    CopySummary now_;
    QList<Entry> entries_;

    QLabel* today_ = nullptr;
    QStackedWidget* middle_ = nullptr;
    QTreeWidget* copies_ = nullptr;
    QLabel* difference_ = nullptr;
    QPushButton* putBack_ = nullptr;
    QPushButton* close_ = nullptr;
};
