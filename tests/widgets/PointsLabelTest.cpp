#include "filling/RowFigures.h"
#include "look/LookColors.h"
#include "tests/common/FormTest.h"
#include "widgets/PointsStar.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class PointsLabelTest : public FormTest {
protected:
    /// Columns of a label, from the first to the last that shows a colour.
    static std::pair<int, int> ColumnsOf(const QColor& color, const QImage& seen) {
        std::pair found(-1, -1);
        for (int x = 0; x < seen.width(); ++x)
            for (int y = 0; y < seen.height(); ++y)
                if (seen.pixel(x, y) == color.rgb()) {
                    found.first = found.first < 0 ? x : found.first;
                    found.second = x;
                }
        return found;
    }
};

TEST_F(PointsLabelTest, AStarStandsBeforeTheNumber) {
    PointsLabel label;
    EXPECT_EQ(label.font().pointSizeF(), 12.5);
    EXPECT_EQ(label.font().weight(), QFont::DemiBold);
    label.setText(u"500"_s);
    EXPECT_GE(label.sizeHint().width(), 22 + label.fontMetrics().horizontalAdvance(u"500"_s));
    label.resize(80, 22);
    const double scale = label.devicePixelRatioF();
    const auto star = ColumnsOf(LookColors::Gold, label.grab().toImage());
    EXPECT_GE(star.first, 0);
    EXPECT_LT(star.second, 16 * scale);
    QPalette colors = label.palette();
    colors.setColor(QPalette::WindowText, Qt::magenta);
    label.setPalette(colors);
    const auto number = ColumnsOf(Qt::magenta, label.grab().toImage());
    EXPECT_GE(number.first, 22 * scale);
    EXPECT_GT(number.second, number.first);
}

TEST_F(PointsLabelTest, WithoutANumberThereIsNoStar) {
    PointsLabel label;
    label.resize(80, 22);
    EXPECT_EQ(ColumnsOf(LookColors::Gold, label.grab().toImage()), std::pair(-1, -1));
}

TEST_F(PointsLabelTest, AJobsPointsHaveTheSameStar) {
    const auto star = [](QLabel&& label) {
        label.setText(u"5"_s);
        label.resize(80, 22);
        const QImage seen = label.grab().toImage();
        return seen.copy(QRect(QPoint(), QSize(16, 22) * seen.devicePixelRatio()));
    };
    const QImage one = star(PointsLabel());
    EXPECT_GE(ColumnsOf(LookColors::Gold, one).first, 0);
    EXPECT_EQ(star(PointsText(nullptr)), one);
}

} // namespace
