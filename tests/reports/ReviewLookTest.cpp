#include "look/LookColors.h"
#include "tests/reports/ReviewTest.h"

#include <QLabel>

namespace {

/// What the review looks like to the pixel.
class ReviewLookTest : public ReviewTest {
protected:
    inline static const QString Dishes = QStringLiteral("Dishes Anna");

    static QImage Seen(QWidget& part) { return part.grab().toImage(); }
    /// The rows of pixels, above the lower edge, that have the colour of the rectangles.
    static QList<int> RulesOn(int x) {
        const QImage seen = Seen(Surface());
        const QRgb color = LookColors::Band.darker(135).rgb();
        QList<int> rules;
        for (int y = Part("Picture1").height(); y < seen.height(); ++y)
            if (seen.pixel(x, y) == color)
                rules += y;
        return rules;
    }
    static QList<int> FromTo(int from, int to, int step) {
        QList<int> values;
        for (int value = from; value <= to; value += step)
            values += value;
        return values;
    }
};

TEST_F(ReviewLookTest, RowsArePartedByOneLineOfOnePixel) {
    MakeChart(Dishes, Jobs(4));
    OpenOn(Dishes);
    constexpr int beforeTexts = 12;
    constexpr int side = 8;
    // The rectangles follow each other closely until they are first scrolled.
    EXPECT_EQ(RulesOn(beforeTexts), FromTo(80, 80 + 4 * 33, 33) << 80 + 5 * 33 - 1);
    EXPECT_EQ(RulesOn(side), FromTo(80, 80 + 5 * 33 - 1, 1)) << "without a gap";
    Scroll().setValue(1);
    EXPECT_EQ(RulesOn(beforeTexts), FromTo(80, 80 + 3 * 34, 34) << 80 + 3 * 34 + 33 - 1);
    EXPECT_EQ(RulesOn(side), FromTo(73, 80 + 3 * 34 + 33 - 1, 1)) << "without a gap";
}

TEST_F(ReviewLookTest, TheHeadsBandFollowsTheCardsCorners) {
    MakeChart(Dishes, Jobs(2));
    OpenOn(Dishes);
    const QImage seen = Seen(Surface());
    const int right = seen.width() - 1;
    const int bottom = seen.height() - 1;
    for (const QPoint& corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
        EXPECT_EQ(seen.pixelColor(corner), LookColors::Paper) << corner.x() << " " << corner.y();
    for (const QPoint& edge : {QPoint(300, 0), QPoint(0, 30), QPoint(right, 30), QPoint(0, 200),
                               QPoint(right, 200), QPoint(100, bottom)})
        EXPECT_EQ(seen.pixelColor(edge), LookColors::Line) << edge.x() << " " << edge.y();
    for (const QPoint& band : {QPoint(4, 4), QPoint(right - 4, 4), QPoint(300, 1)})
        EXPECT_EQ(seen.pixelColor(band), LookColors::Band) << band.x() << " " << band.y();
}

TEST_F(ReviewLookTest, TheEdgeGrowsWithTheCard) {
    MakeChart(Dishes, Jobs(2));
    WeekChartRepresentation& form = OpenOn(Dishes);
    form.Frame().resize(form.Frame().size() + QSize(0, 60));
    Settle();
    EXPECT_EQ(Part("Edge").geometry(), Surface().rect());
    const QImage seen = Seen(Surface());
    EXPECT_EQ(seen.pixelColor(100, seen.height() - 1), LookColors::Line);
}

TEST_F(ReviewLookTest, BeforeAChoiceAFaintTableAndAnArrowToTheListAreSeen) {
    MakeChart(Dishes, Jobs(2));
    Open();
    auto& note = dynamic_cast<QLabel&>(Part("ChooseFirst"));
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(note.text(), QStringLiteral("Choose a Dutygrid in the list to see its week."));
    const QImage seen = Seen(note);
    EXPECT_EQ(seen.pixelColor(0, 0), LookColors::Paper);
    EXPECT_EQ(seen.pixelColor(100, 5), LookColors::Band) << "the head";
    EXPECT_EQ(seen.pixelColor(230, 40), LookColors::TealPale) << "a day's name";
    EXPECT_EQ(seen.pixelColor(12, 80), LookColors::Band) << "a row's line";
    EXPECT_EQ(seen.pixelColor(12, 90), LookColors::Card);
    int arrow = 0;
    while (seen.pixelColor(arrow, 113) != LookColors::Teal)
        ASSERT_LT(++arrow, seen.width());
    EXPECT_NEAR(arrow, 5, 1) << "it ends close to the edge";
    const QRect text = note.fontMetrics().boundingRect(note.rect(), Qt::AlignCenter, note.text());
    for (const QPoint& beside : {text.topLeft() - QPoint(8, 2), text.bottomRight() + QPoint(8, 2)})
        EXPECT_EQ(seen.pixelColor(beside), LookColors::Card) << "the text's own ground";
    Choose(Dishes);
    EXPECT_FALSE(note.isVisible());
}

TEST_F(ReviewLookTest, WithoutADutygridThereIsNothingToPointTo) {
    Open();
    EXPECT_FALSE(Part("ChooseFirst").isVisible());
}

} // namespace
