#pragma once

#include <QColor>
#include <QLabel>
#include <QStringList>

/// A label that never asks for more room than it is given: its text runs over as many lines as
/// fit, a number on one with the word behind it; the last one ends in an ellipsis where the text
/// is cut, and the whole text is then its tool tip in the place of another. `text()` is always the
/// whole text, shown letter by letter as it is.
class FittingLabel : public QLabel {
    Q_OBJECT

public:
    explicit FittingLabel(QWidget* parent = nullptr);

    /// The colour of the text; until it is set, the palette's.
    QColor ForeColor() const;
    void SetForeColor(const QColor& color);

    /// True if nothing of the text is cut.
    bool TextFits() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Lines {
        QStringList texts;
        bool cut = false;
    };
    Lines LinesWithin(const QSize& size) const;

    QColor foreColor_;
};
