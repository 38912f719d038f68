#include "widgets/FittingLabel.h"

#include "widgets/KeptUnits.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <QToolTip>
#include <algorithm>

FittingLabel::FittingLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QColor FittingLabel::ForeColor() const {
    return foreColor_.isValid() ? foreColor_ : palette().color(foregroundRole());
}

void FittingLabel::SetForeColor(const QColor& color) {
    if (color == foreColor_)
        return;
    foreColor_ = color;
    update();
}

bool FittingLabel::TextFits() const {
    return !LinesWithin(contentsRect().size()).cut;
}

QSize FittingLabel::sizeHint() const {
    const QMargins margins = contentsMargins();
    return {fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right(),
            fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize FittingLabel::minimumSizeHint() const {
    const QSize oneLine = sizeHint();
    return {std::min(oneLine.width(), fontMetrics().averageCharWidth() * 8), oneLine.height()};
}

bool FittingLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QPoint place = static_cast<QHelpEvent*>(event)->globalPos();
        if (TextFits())
            QToolTip::showText(place, toolTip(), this);
        else
            QToolTip::showText(place, QStringLiteral("<p>%1</p>").arg(text().toHtmlEscaped()),
                               this);
        return true;
    }
    return QLabel::event(event);
}

void FittingLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(ForeColor());
    const QRect area = contentsRect();
    const QStringList lines = LinesWithin(area.size()).texts;
    const int lineHeight = fontMetrics().height();
    const int height = lineHeight * static_cast<int>(lines.size());
    int top = area.top();
    if (alignment().testFlag(Qt::AlignVCenter))
        top += (area.height() - height) / 2;
    else if (alignment().testFlag(Qt::AlignBottom))
        top += area.height() - height;
    const int across = static_cast<int>(alignment() & Qt::AlignHorizontal_Mask);
    for (const QString& line : lines) {
        painter.drawText(QRect(area.left(), top, area.width(), lineHeight),
                         across | Qt::AlignVCenter | Qt::TextSingleLine, line);
        top += lineHeight;
    }
}

FittingLabel::Lines FittingLabel::LinesWithin(const QSize& size) const {
    Lines result;
    QString whole = QString(text()).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const int maxLines = std::max(1, size.height() / std::max(1, fontMetrics().height()));
    if (maxLines > 1)
        whole = WithUnitsKept(whole);
    QTextLayout layout(whole, font());
    QTextOption option;
    option.setWrapMode(maxLines > 1 ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                    : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    while (true) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(size.width());
        if (result.texts.size() + 1 == maxLines) {
            const QString rest = whole.mid(line.textStart());
            const QString shown =
                fontMetrics().elidedText(rest.trimmed(), Qt::ElideRight, size.width());
            result.texts += shown;
            result.cut = shown != rest.trimmed();
            break;
        }
        result.texts += whole.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return result;
}
