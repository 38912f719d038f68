#include "accounts/ChildrenList.h"
#include "accounts/DisplayAccount.h"
#include "look/LookColors.h"
#include "reports/Reportfrm.h"
#include "tests/shell/ShellTest.h"
#include "widgets/ClickList.h"

#include <QDir>
#include <QTest>

namespace {

/// Wherever people are listed a child finds itself by its picture.
class PeoplePicturesTest : public ShellTest {
protected:
    PeoplePicturesTest() {
        Add(QStringLiteral("Mum"), QStringLiteral("Teacher"), Qt::red);
        Add(QStringLiteral("Kim"), QStringLiteral("Student"), Qt::green);
        Arrange([] {
            Database().AddUser(QStringLiteral("Lee"), QStringLiteral("x"),
                               QStringLiteral("Student"), QString());
        });
    }

    static void Add(const QString& name, const QString& state, const QColor& color) {
        const QString file = PictureFile(name + QStringLiteral(".png"), color.rgb());
        Arrange([&] { Database().AddUser(name, QStringLiteral("x"), state, file); });
    }

    /// The colour in the middle of what stands before a name.
    static QColor Disc(QAbstractItemView& list, int row) {
        const QRect place = list.visualRect(list.model()->index(row, 0));
        const QImage seen = list.viewport()->grab().toImage();
        const QPointF middle(place.left() + 25, place.center().y());
        return seen.pixelColor((middle * seen.devicePixelRatio()).toPoint());
    }

    /// However slow the machine is.
    static void ExpectDisc(QAbstractItemView& list, int row, const QColor& color) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Disc(list, row) == color; }, Patience))
            << list.objectName().toStdString() << " " << row << " "
            << Disc(list, row).name().toStdString();
        EXPECT_GE(list.visualRect(list.model()->index(row, 0)).height(), 40);
    }

    template <class FormClass>
    static FormClass& Open() {
        auto& form = Default<FormClass>();
        form.Show();
        return InFront(form);
    }
};

TEST_F(PeoplePicturesTest, InTheLogIn) {
    ShowLogIn();
    ExpectDisc(Teachers(), 0, Qt::red);
    ExpectDisc(Students(), 0, Qt::green);
    ExpectDisc(Students(), 1, LookColors::Line);
    EXPECT_FALSE(QDir(Path(QStringLiteral("DeleteMe"))).exists());
}

TEST_F(PeoplePicturesTest, InTheAccountView) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    auto& list = Find<ChildrenList>(Open<DisplayAccount>(), QStringLiteral("StudentsList"));
    ExpectDisc(list, 0, Qt::green);
    ExpectDisc(list, 1, LookColors::Line);
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("new.png"), QColor(Qt::blue).rgb());
    ClickRow(list, 1);
    Click(Find(Default<DisplayAccount>(), QStringLiteral("cmdChgPic")));
    ExpectDisc(list, 1, Qt::blue);
    ExpectDisc(list, 0, Qt::green);
}

TEST_F(PeoplePicturesTest, InTheReports) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    auto& list = Find<ClickList>(Open<Reportfrm>(), QStringLiteral("StudentsList"));
    ExpectDisc(list, 0, Qt::green);
    ExpectDisc(list, 1, LookColors::Line);
}

} // namespace
