#include "widgets/EmptyNote.h"

#include <QAbstractItemView>
#include <QEvent>

EmptyNote::EmptyNote(QAbstractItemView& list, const QString& text)
    : QLabel(list.viewport()), list_(list) {
    setProperty("role", QStringLiteral("hint"));
    setFont(list.font());
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(10);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const QAbstractItemModel* rows = list.model();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &EmptyNote::Look);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &EmptyNote::Look);
    connect(rows, &QAbstractItemModel::modelReset, this, &EmptyNote::Look);
    list.viewport()->installEventFilter(this);
    Say(text);
}

void EmptyNote::Say(const QString& text) {
    setText(text);
    Look();
}

void EmptyNote::Look() {
    const bool isEmpty = list_.model()->rowCount() == 0;
    setVisible(isEmpty);
    list_.setAccessibleDescription(isEmpty ? text().replace(QLatin1Char('\n'), QLatin1Char(' '))
                                           : QString());
    setGeometry(list_.viewport()->rect());
}

bool EmptyNote::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        setGeometry(list_.viewport()->rect());
    return QLabel::eventFilter(watched, event);
}
