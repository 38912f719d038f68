#include "authoring/ListFrame.h"

#include "look/LookColors.h"
#include "tests/common/FormTest.h"

#include <QImage>

namespace {

class ListFrameTest : public FormTest {};

TEST_F(ListFrameTest, TheBandEndsInOneCrispLineAtEveryScale) {
    ListFrame frame;
    frame.setMaximumSize(300, 120);
    frame.resize(300, 120);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage seen(frame.size() * scale, QImage::Format_RGB32);
        seen.setDevicePixelRatio(scale);
        frame.render(&seen);
        const int across = seen.width() / 2;
        QList<int> line;
        for (int y = 0; y < seen.height(); ++y)
            if (seen.pixelColor(across, y) == LookColors::Outline)
                line += y;
        ASSERT_EQ(line.size(), static_cast<int>(scale)) << scale;
        EXPECT_NEAR(line.first(), (ListFrame::BandBottom - 1) * scale, 0.5) << scale;
        EXPECT_EQ(seen.pixelColor(across, line.first() - 1), LookColors::Band) << scale;
        EXPECT_EQ(seen.pixelColor(across, line.last() + 1), LookColors::Card) << scale;
    }
}

} // namespace
