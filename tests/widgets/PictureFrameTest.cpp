#include "widgets/PictureFrame.h"

#include "look/LookColors.h"
#include "tests/common/FormTest.h"

namespace {

class PictureFrameTest : public FormTest {
protected:
    PictureFrameTest() { frame_.resize(100, 100); }

    QColor Middle() {
        const QImage seen = frame_.grab().toImage();
        return seen.pixelColor(seen.width() / 2, seen.height() / 2);
    }

    PictureFrame frame_;
};

TEST_F(PictureFrameTest, AnEmptyOneShowsWhatBelongsThere) {
    EXPECT_EQ(Middle(), LookColors::Line) << "somebody's head";
    frame_.setProperty("ofGoal", true);
    frame_.update();
    const QImage present = frame_.grab().toImage();
    EXPECT_EQ(Middle(), LookColors::Line) << "a present's ribbon";
    frame_.setProperty("ofGoal", false);
    EXPECT_NE(frame_.grab().toImage(), present);
}

TEST_F(PictureFrameTest, APictureStandsAlone) {
    QPixmap picture(10, 10);
    picture.fill(Qt::red);
    frame_.setPixmap(picture);
    frame_.setAlignment(Qt::AlignCenter);
    EXPECT_EQ(Middle(), QColor(Qt::red));
    const QImage seen = frame_.grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() * 7 / 10), LookColors::Paper)
        << "no shoulders";
}

} // namespace
