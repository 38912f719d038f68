#pragma once

#include <QLabel>

class QAbstractItemView;

/// What a list says in its middle, in its font, while it has no rows; also to screen readers, for
/// whom the lines that the text is given in are one.
class EmptyNote : public QLabel {
    Q_OBJECT

public:
    EmptyNote(QAbstractItemView& list, const QString& text);

    void Say(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Look();

    QAbstractItemView& list_;
};
