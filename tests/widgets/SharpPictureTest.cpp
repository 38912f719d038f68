#include "tests/common/FormTest.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/GoalPath.h"
#include "widgets/KeptPicture.h"

#include <QPainter>
#include <QStyleOption>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// Pictures that are kept as they were painted stand in their places, and are as sharp as the
/// screen, whatever its scale is.
class SharpPictureTest : public FormTest {
protected:
    static QImage Red(const QSize& size) {
        QImage red(size, QImage::Format_RGB32);
        red.fill(Qt::red);
        return red;
    }

    static void Expose(QWidget& widget) {
        widget.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget, Patience));
    }

    /// Whether a widget is red at a place.
    static bool IsRed(QWidget& widget, int x, int y) {
        const QImage seen = widget.grab().toImage();
        const QPointF place = QPointF(x + 0.5, y + 0.5) * seen.devicePixelRatio();
        return seen.pixelColor(static_cast<int>(place.x()), static_cast<int>(place.y())) ==
               QColor(Qt::red);
    }
};

/// Red in its right half, less half a pixel.
class HalfRed : public QWidget {
public:
    QString Kind = u"HalfRed"_s;
    QStyle::State State = QStyle::State_None;
    int Paints = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOption option;
        option.initFrom(this);
        option.state = State;
        PaintFromPicture(*this, rect(), Kind, option, [this](QPainter& painter) {
            ++Paints;
            painter.fillRect(QRectF(width() / 2 + 0.5, 0, width(), height()), Qt::red);
        });
    }
};

TEST_F(SharpPictureTest, TheGoalOfAWay) {
    GoalPath path;
    path.resize(640, 56);
    path.Show(0, 20, u"Kite"_s, Red(QSize(64, 64)));
    Expose(path);
    // A square of 48 pixels, and what surrounds the goal to its right.
    for (const int x : {589, 610, 635})
        EXPECT_TRUE(IsRed(path, x, 28)) << x;
    for (const int x : {300, 570, 587, 637})
        EXPECT_FALSE(IsRed(path, x, 28)) << x;
    path.Show(0, 20, u"Kite"_s, Red(QSize(64, 32)));
    EXPECT_TRUE(IsRed(path, 600, 28));
    EXPECT_FALSE(IsRed(path, 600, 8)) << "in its own shape";
}

TEST_F(SharpPictureTest, ThePictureOfALabel) {
    QLabel label;
    label.resize(200, 40);
    LabelPicture picture(label);
    picture.SetPicture(Red(QSize(10, 20)));
    EXPECT_EQ(picture.Picture().size(), QSize(10, 20)) << "as it came";
    const QPixmap shown = label.pixmap(Qt::ReturnByValue);
    EXPECT_EQ(shown.deviceIndependentSize(), QSizeF(20, 40));
    EXPECT_EQ(shown.devicePixelRatio(), label.devicePixelRatioF());
    picture.SetPicture(QImage());
    EXPECT_TRUE(picture.Picture().isNull());
    EXPECT_TRUE(label.pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(SharpPictureTest, TheGroundOfAControl) {
    HalfRed control;
    control.resize(80, 20);
    Expose(control);
    EXPECT_TRUE(IsRed(control, 60, 10));
    EXPECT_FALSE(IsRed(control, 20, 10));
    const QImage seen = control.grab().toImage();
    if (seen.devicePixelRatio() != 2)
        return;
    EXPECT_NE(seen.pixelColor(80, 20), QColor(Qt::red)) << "the half pixel";
    EXPECT_EQ(seen.pixelColor(81, 20), QColor(Qt::red));
}

TEST_F(SharpPictureTest, AGroundIsPaintedOnceForAllThatLookTheSame) {
    HalfRed control;
    // How often it is painted after a change.
    const auto paints = [&control](const std::function<void()>& change) {
        change();
        control.Paints = 0;
        control.grab();
        return control.Paints;
    };
    EXPECT_EQ(paints([&] { control.resize(90, 20); }), 1);
    EXPECT_EQ(paints([] {}), 0);
    EXPECT_EQ(paints([&] { control.resize(91, 20); }), 1);
    EXPECT_EQ(paints([&] { control.resize(90, 20); }), 0) << "kept from before";
    EXPECT_EQ(paints([&] { control.resize(91, 21); }), 1);
    EXPECT_EQ(paints([&] { control.State = QStyle::State_HasFocus; }), 1);
    EXPECT_EQ(paints([&] { control.Kind = u"Another"_s; }), 1);
    QPalette colors = control.palette();
    colors.setColor(QPalette::Text, Qt::yellow);
    EXPECT_EQ(paints([&] { control.setPalette(colors); }), 1);
}

} // namespace
