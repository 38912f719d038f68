#include "widgets/FormShape.h"

#include "support/Region.h"
#include "tests/common/FormTest.h"

namespace {

class FormShapeTest : public FormTest {
protected:
    static Region Triangle() {
        Region shape;
        shape.SubAddPoint(0, 0);
        shape.SubAddPoint(200, 0);
        shape.SubAddPoint(0, 200);
        return shape;
    }
};

TEST_F(FormShapeTest, PolygonCutsTheWindowAndAnEmptyFileRestoresIt) {
    Form& form = DefaultForm(QStringLiteral("LogIn"));
    FormShape window(form);
    Region shape = Triangle();
    shape.SetRegion(window);
    EXPECT_TRUE(form.Widget().mask().contains(QPoint(20, 20)));
    EXPECT_FALSE(form.Widget().mask().contains(QPoint(190, 190)));
    shape.LoadFromFile(Path(QStringLiteral("empty")), window);
    EXPECT_TRUE(form.Widget().mask().isEmpty());
}

TEST_F(FormShapeTest, FormInTheMainWindowIsCutWithItsFrame) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    Form& form = DefaultForm(QStringLiteral("OtherOptions"));
    form.Show();
    Settle();
    FormShape window(form);
    Region shape = Triangle();
    shape.SetRegion(window);
    EXPECT_FALSE(form.Frame().mask().contains(QPoint(190, 190)));
    EXPECT_TRUE(form.Frame().mask().contains(QPoint(20, 20)));
}

TEST_F(FormShapeTest, EmptyRegionLeavesNothingOfTheWindow) {
    Form& form = DefaultForm(QStringLiteral("LogIn"));
    FormShape window(form);
    const QRegion nothing;
    window.SetWindowRgn(&nothing);
    ASSERT_FALSE(form.Widget().mask().isEmpty());
    EXPECT_TRUE(form.Widget().mask().intersected(form.Widget().rect()).isEmpty());
}

TEST_F(FormShapeTest, RegionLargerThanAnyWindowIsCutToWhatWindowsCount) {
    Form& form = DefaultForm(QStringLiteral("LogIn"));
    FormShape window(form);
    const QRegion large(-100'000'000, -5, 200'000'000, 100'000'000);
    window.SetWindowRgn(&large);
    EXPECT_EQ(form.Widget().mask().boundingRect(), QRect(0, 0, 32767, 32767));
}

} // namespace
