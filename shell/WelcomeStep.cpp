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
constexpr int SmallSide = 32;
constexpr int LargeSide = 48;
constexpr int Gap = 14;
constexpr int KeyEdge = 8;
constexpr int KeyRound = 5;
constexpr int NarrowestText = 120;
constexpr int ArrowWidth = 7;
constexpr double LargeName = 15; // points

} // namespace

WelcomeStep::WelcomeStep(const Greeting::Step& step, QWidget* parent)
    : QPushButton(step.command->icon(), step.name, parent), hint_(step.text), key_(step.key),
      isLarge_(step.isLarge) {
    setAutoDefault(true); // Enter presses it, as it does all buttons
    setAccessibleDescription(key_.isEmpty() ? hint_ : hint_ + QLatin1Char(' ') + key_);
}

int WelcomeStep::IconSide() const {
    return isLarge_ ? LargeSide : SmallSide;
}

QFont WelcomeStep::NameFont() const {
    QFont larger = font();
    larger.setPointSizeF(isLarge_ ? LargeName : larger.pointSizeF() * 1.15);
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
    const int right = Edge + ArrowWidth + Gap + (key_.isEmpty() ? 0 : KeyWidth() + Gap);
    QRect place = rect().adjusted(Edge + IconSide() + Gap, 0, -right, 0);
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
            std::max(IconSide(), TextHeight()) + 2 * Edge};
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
    icon().paint(&painter, Edge, (height() - IconSide()) / 2, IconSide(), IconSide());
    if (!key_.isEmpty())
        PaintKey(painter);
    PaintArrow(painter);
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

void WelcomeStep::PaintKey(QPainter& painter) const {
    const int keyHeight = fontMetrics().height() + 4;
    const QRect key(width() - Edge - ArrowWidth - Gap - KeyWidth(), (height() - keyHeight) / 2,
                    KeyWidth(), keyHeight);
    painter.setPen(LookColors::Line);
    painter.setBrush(LookColors::Band);
    painter.drawRoundedRect(QRectF(key).adjusted(0.5, 0.5, -0.5, -0.5), KeyRound, KeyRound);
    painter.setPen(LookColors::Muted);
    painter.drawText(key, Qt::AlignCenter, key_);
}

void WelcomeStep::PaintArrow(QPainter& painter) const {
    const double right = width() - Edge - 1;
    const double middle = height() / 2.0;
    painter.setPen(QPen(underMouse() ? LookColors::Teal : LookColors::Muted, 2, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{{right - ArrowWidth + 2, middle - ArrowWidth + 2},
                                   {right, middle},
                                   {right - ArrowWidth + 2, middle + ArrowWidth - 2}});
}
