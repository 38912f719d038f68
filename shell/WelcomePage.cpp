#include "shell/WelcomePage.h"

#include "platform/forms/LookColors.h"
#include "shell/LogoPicture.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace {

// Pixels.
constexpr int Margin = 24;
constexpr int IconSide = 32;
constexpr int StepGap = 14;
constexpr int LogoGap = 20;
constexpr int Round = 12;
const QSize LogoSize(300, 100);

QFont Larger(QFont font, qreal factor, bool bold) {
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setWeight(bold ? QFont::DemiBold : QFont::Normal);
    return font;
}

class PageFonts {
public:
    explicit PageFonts(const QFont& font)
        : greeting(Larger(font, 1.8, true)), question(Larger(font, 1.1, false)),
          name(Larger(font, 1.15, true)), text(font) {}

    const QFont greeting;
    const QFont question;
    const QFont name;
    const QFont text;
};

int LineHeight(const QFont& font) {
    return QFontMetrics(font).height();
}

} // namespace

void WelcomePage::Paint(QPainter& painter, const QRect& area, const QWidget& onWidget) const {
    const PageFonts fonts(onWidget.font());
    const int stepHeight = std::max(IconSide, LineHeight(fonts.name) + LineHeight(fonts.text));
    const int stepCount = static_cast<int>(steps.size());
    const int headHeight = LineHeight(fonts.greeting) + 4 + LineHeight(fonts.question);
    int textWidth = QFontMetrics(fonts.greeting).horizontalAdvance(greeting);
    for (const Step& step : steps)
        textWidth = std::max(textWidth, IconSide + StepGap * 4 +
                                            QFontMetrics(fonts.text).horizontalAdvance(step.text) +
                                            QFontMetrics(fonts.name).horizontalAdvance(step.key));
    const QSize wanted(textWidth + 2 * Margin,
                       2 * Margin + headHeight + stepCount * (stepHeight + StepGap) + 4);
    QRect card(QPoint(), QSize(std::min(wanted.width(), area.width() - Margin), wanted.height()));
    if (card.height() > area.height())
        return;
    const bool hasLogo = LogoSize.height() + LogoGap + card.height() + 2 * Margin <= area.height();
    card.moveCenter(area.center());
    if (hasLogo)
        card.translate(0, (LogoSize.height() + LogoGap) / 2);

    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (hasLogo)
        painter.drawPixmap(card.center().x() - LogoSize.width() / 2,
                           card.top() - LogoGap - LogoSize.height(),
                           LogoPicture(onWidget, LogoSize));
    painter.setPen(LookColors::Line);
    painter.setBrush(LookColors::Card);
    painter.drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), Round, Round);

    const QRect inside = card.adjusted(Margin, Margin, -Margin, -Margin);
    int top = inside.top();
    const auto line = [&](const QFont& font, const QColor& color, const QString& text, int left,
                          int right) {
        const QRect place(left, top, right - left, LineHeight(font));
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
        top += place.height();
    };
    const int right = inside.right() + 1;
    line(fonts.greeting, LookColors::Deep, greeting, inside.left(), right);
    top += 4;
    line(fonts.question, LookColors::Muted, question, inside.left(), right);
    top += 4;
    for (const Step& step : steps) {
        top += StepGap;
        const int stepTop = top;
        step.icon.paint(&painter, QRect(inside.left(), stepTop + (stepHeight - IconSide) / 2,
                                        IconSide, IconSide));
        const int keyWidth = QFontMetrics(fonts.text).horizontalAdvance(step.key);
        if (!step.key.isEmpty()) {
            const int keyHeight = LineHeight(fonts.text) + 4;
            const QRect key(right - keyWidth - 16, stepTop + (stepHeight - keyHeight) / 2,
                            keyWidth + 16, keyHeight);
            painter.setPen(LookColors::Line);
            painter.setBrush(LookColors::Band);
            painter.drawRoundedRect(QRectF(key).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
            painter.setFont(fonts.text);
            painter.setPen(LookColors::Muted);
            painter.drawText(key, Qt::AlignCenter, step.key);
        }
        const int left = inside.left() + IconSide + StepGap;
        const int textRight = right - (step.key.isEmpty() ? 0 : keyWidth + 16 + StepGap);
        line(fonts.name, LookColors::Ink, step.name, left, textRight);
        line(fonts.text, LookColors::Muted, step.text, left, textRight);
        top = stepTop + stepHeight;
    }
    painter.restore();
}
