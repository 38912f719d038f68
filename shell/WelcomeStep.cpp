#include "shell/WelcomeStep.h"

#include "look/LookColors.h"

#include <QAction>
#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace {

// Pixels.
constexpr int Edge = 10;
constexpr int IconSide = 32;
constexpr int Gap = 14;
constexpr int KeyEdge = 8;
constexpr int KeyRound = 5;
constexpr int NarrowestText = 120;

} // namespace

WelcomeStep::WelcomeStep(const Greeting::Step& step, QWidget* parent)
    : QPushButton(step.command->icon(), step.name, parent), hint_(step.text), key_(step.key) {
    setAutoDefault(true); // Enter presses it, as it does all buttons
    setAccessibleDescription(key_.isEmpty() ? hint_ : hint_ + QLatin1Char(' ') + key_);
}

QFont WelcomeStep::NameFont() const {
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * 1.15);
    larger.setWeight(QFont::DemiBold);
    return larger;
}

int WelcomeStep::TextHeight() const {
    return QFontMetrics(NameFont()).height() + fontMetrics().height();
}

int WelcomeStep::KeyWidth() const {
    return key_.isEmpty() ? 0 : fontMetrics().horizontalAdvance(key_) + 2 * KeyEdge;
}

QRect WelcomeStep::TextPlace() const {
    const int right = key_.isEmpty() ? Edge : Edge + KeyWidth() + Gap;
    QRect place = rect().adjusted(Edge + IconSide + Gap, 0, -right, 0);
    place.setTop((height() - TextHeight()) / 2);
    place.setHeight(TextHeight());
    return place;
}

QSize WelcomeStep::sizeHint() const {
    const int words = std::max(fontMetrics().horizontalAdvance(hint_),
                               QFontMetrics(NameFont()).horizontalAdvance(text()));
    // Widths come rounded to whole pixels; a text that just fits is not to be cut for that.
    constexpr int Spare = 2;
    return {width() - TextPlace().width() + words + Spare, minimumSizeHint().height()};
}

QSize WelcomeStep::minimumSizeHint() const {
    return {width() - TextPlace().width() + NarrowestText,
            std::max(IconSide, TextHeight()) + 2 * Edge};
}

bool WelcomeStep::event(QEvent* event) {
    const bool isCut = fontMetrics().horizontalAdvance(hint_) > TextPlace().width();
    if (event->type() == QEvent::ToolTip && isCut) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           Qt::convertFromPlainText(hint_), this);
        return true;
    }
    return QPushButton::event(event);
}

void WelcomeStep::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);

    painter.setRenderHint(QPainter::Antialiasing);
    icon().paint(&painter, QRect(Edge, (height() - IconSide) / 2, IconSide, IconSide));
    if (!key_.isEmpty()) {
        const int keyHeight = fontMetrics().height() + 4;
        const QRect key(width() - Edge - KeyWidth(), (height() - keyHeight) / 2, KeyWidth(),
                        keyHeight);
        painter.setPen(LookColors::Line);
        painter.setBrush(LookColors::Band);
        painter.drawRoundedRect(QRectF(key).adjusted(0.5, 0.5, -0.5, -0.5), KeyRound, KeyRound);
        painter.setPen(LookColors::Muted);
        painter.drawText(key, Qt::AlignCenter, key_);
    }
    QRect line = TextPlace();
    const auto write = [&](const QFont& lineFont, const QColor& color, const QString& text) {
        const QFontMetrics metrics(lineFont);
        line.setHeight(metrics.height());
        painter.setFont(lineFont);
        painter.setPen(color);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(text, Qt::ElideRight, line.width()));
        line.moveTop(line.bottom() + 1);
    };
    write(NameFont(), LookColors::Ink, text());
    write(font(), LookColors::Muted, hint_);
}
