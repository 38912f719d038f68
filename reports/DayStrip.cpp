#include "reports/DayStrip.h"

#include "platform/forms/Twips.h"
#include "platform/runtime/Dates.h"
#include "reports/MatrixCell.h"
#include "reports/ReviewLayout.h"

#include <QPainter>

using namespace ReviewLayout;

DayStrip::DayStrip(QWidget* parent) : QWidget(parent) {
    setFont(MatrixCell::Face());
}

QRect DayStrip::PlaceOf(int day) const {
    constexpr int Beyond = 4; // pixels beyond the column's labels on both sides
    constexpr int Top = 12;
    constexpr int Height = 25;
    // The frame with the columns begins where the strip's own parent does.
    const int left = PixelsOf(DayLefts.at(static_cast<std::size_t>(day - 1))) - x();
    return {left - Beyond, Top, PixelsOf(DayWidth) + 2 * Beyond, Height};
}

void DayStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int day = 1; day <= DaysOfWeek; ++day) {
        const QRect place = PlaceOf(day);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(place, 6, 6);
        painter.setPen(palette().color(QPalette::HighlightedText));
        painter.drawText(place, Qt::AlignCenter, DayAbbreviation(day));
    }
}
