#include "store/TableNames.h"
#include "tests/accounts/DisplayAccountTest.h"
#include "tests/common/Charts.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>

namespace {

class DisplayAccountListTest : public DisplayAccountTest {};

TEST_F(DisplayAccountListTest, ClickByAnAdultSelectsTheRowAndShowsItsAccount) {
    OpenView();
    ClickRow(List(), 0);
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), KimsFigures);
    EXPECT_EQ(Text("KidName"), Kim);
    EXPECT_EQ(Text("Label5"), QStringLiteral("420"));
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::red));
    EXPECT_EQ(PictureColor("Image2"), QColor(Qt::red));
    ClickRow(List(), 1);
    EXPECT_EQ(List().SelectedName(), Lee);
    EXPECT_EQ(Figures(), QStringLiteral("30||"));
    EXPECT_EQ(Text("KidName"), Lee);
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::green));
    EXPECT_FALSE(PictureColor("Image2").isValid());
}

TEST_F(DisplayAccountListTest, AdultChoosesAChildByKeys) {
    OpenView();
    List().setFocus();
    Press(List(), Qt::Key_Down);
    EXPECT_EQ(Figures(), KimsFigures);
    Press(List(), Qt::Key_Down);
    EXPECT_EQ(Text("KidName"), Lee);
    Boxes.Expect(ResetQuestion, PromptAnswer::Yes);
    Press(Find(View(), QStringLiteral("cmdReset")), Qt::Key_Space);
    EXPECT_EQ(StoredPoints(Lee), QStringLiteral("0"));
    List().setFocus();
    Press(List(), Qt::Key_Down);
    EXPECT_EQ(Text("KidName"), Lee) << "the keys go on at the row where they were";
}

TEST_F(DisplayAccountListTest, PressByAnAdultRebuildsTheListAndTheReleaseShowsTheRowPressed) {
    OpenView();
    ClickRow(List(), 0);
    MakeChild(QStringLiteral("Zoe"), 0);
    Database().AddPoints(Lee, 5, false);
    MousePress(1);
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee, QStringLiteral("Zoe")}));
    EXPECT_EQ(List().SelectedName(), Lee);
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_EQ(Text("KidName"), QString());
    MouseRelease(1);
    EXPECT_EQ(Figures(), QStringLiteral("35||"));
    EXPECT_EQ(Text("KidName"), Lee);
}

TEST_F(DisplayAccountListTest, SecondPressOfADoubleClickIsAPressLikeTheFirst) {
    OpenView();
    DoubleClickRow(List(), 0);
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), NoFigures);
    MouseRelease(0);
    EXPECT_EQ(Figures(), KimsFigures);
}

TEST_F(DisplayAccountListTest, PressInAScrolledListSelectsTheRowUnderTheMouse) {
    for (int child = 0; child < 28; ++child)
        MakeChild(QStringLiteral("Child %1").arg(child), 1);
    OpenView();
    ASSERT_EQ(List().topLevelItemCount(), 30);
    List().scrollToItem(List().topLevelItem(29));
    Settle();
    const int top = List().verticalScrollBar()->value();
    ASSERT_GT(top, 0);
    ClickRow(List(), 27);
    EXPECT_EQ(List().SelectedName(), QStringLiteral("Child 25"));
    EXPECT_EQ(Text("KidName"), QStringLiteral("Child 25"));
    EXPECT_EQ(List().verticalScrollBar()->value(), top);
    LookAt(MainWindow(), QStringLiteral("DisplayAccount-30-children"));
    Boxes.Expect(ResetQuestion, PromptAnswer::No);
    PressButton("cmdReset");
    EXPECT_EQ(List().verticalScrollBar()->value(), top);
}

TEST_F(DisplayAccountListTest, AScrolledListStaysWhereItIs) {
    for (int child = 0; child < 28; ++child)
        MakeChild(QStringLiteral("Child %1").arg(child), 1);
    OpenView();
    QScrollBar& bar = *List().verticalScrollBar();
    const int middle = bar.maximum() / 2;
    ASSERT_GT(middle, 0);
    bar.setValue(middle);
    List().setCurrentItem(nullptr);
    Boxes.Expect(ResetQuestion, PromptAnswer::No);
    PressButton("cmdReset");
    EXPECT_EQ(bar.value(), middle) << "no row was ever chosen";
    const int row = List().indexOfTopLevelItem(List().itemAt(List().viewport()->rect().center()));
    ClickRow(List(), row);
    EXPECT_EQ(bar.value(), middle);
    ActivateAgain();
    EXPECT_EQ(bar.value(), middle);
}

TEST_F(DisplayAccountListTest, ClickBelowTheLastRowByAnAdultEmptiesTheView) {
    OpenView();
    ClickRow(List(), 0);
    ClickEmptyPart(List());
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_EQ(Text("KidName"), QString());
}

TEST_F(DisplayAccountListTest, RightPressAsksAboutTheRowBeneathTheMouseAndYesDeletesIt) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes, [] {
        EXPECT_EQ(List().SelectedName(), Lee) << "not the one selected before";
        EXPECT_EQ(Text("KidName"), Lee);
    });
    MousePress(1, Qt::RightButton);
    ExpectQuestion(true);
    EXPECT_EQ(Names(List()), QStringList(Kim));
    EXPECT_EQ(List().currentItem(), List().topLevelItem(0)) << "the keyboard is on who is left";
    EXPECT_EQ(Database().RetreveState(Lee), QString());
    EXPECT_EQ(Database().RetreveState(Kim), QStringLiteral("Student"));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountListTest, RightPressOnAnEmptyPlaceDeletesNobody) {
    Arrange([] { StoreChart(QStringLiteral("Nobody's"), {EditorRow{}}, QString()); });
    OpenView();
    ClickRow(List(), 0);
    const QStringList accounts = Rows(UsersTable);
    const QStringList tables = TableNames();
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes,
                 [] { EXPECT_EQ(List().SelectedName(), QString()); });
    const QPoint below(10, List().viewport()->height() - 5);
    ASSERT_EQ(List().itemAt(below), nullptr);
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, below);
    Settle();
    ExpectQuestion(true);
    EXPECT_EQ(Rows(UsersTable), accounts);
    EXPECT_EQ(TableNames(), tables);
}

TEST_F(DisplayAccountListTest, RightPressAnsweredNoDeletesNothingAndRebuildsTheList) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(DeleteQuestion, PromptAnswer::No);
    MousePress(0, Qt::RightButton);
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee}));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountListTest, TheMenuKeyAsksAsTheRightButtonDoes) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Press(List(), Qt::Key_Menu);
    Settle();
    ExpectQuestion(true);
    EXPECT_EQ(Names(List()), QStringList(Lee));
}

TEST_F(DisplayAccountListTest, MiddlePressByAnAdultAsksNothingAndRebuildsTheList) {
    OpenView();
    ClickRow(List(), 0);
    MousePress(0, Qt::MiddleButton);
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountListTest, WithNoRowSelectedCashOutResetAndDeleteAffectNoAccount) {
    OpenView();
    const QStringList before = Rows(UsersTable);
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    PressButton("Command1");
    Boxes.Expect(ResetQuestion, PromptAnswer::Yes);
    PressButton("cmdReset");
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Press(List(), Qt::Key_Menu);
    EXPECT_EQ(Rows(UsersTable), before);
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountListTest, PressByAChildDoesNothingOfItsOwn) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    MakeChild(QStringLiteral("Zoe"), 0);
    MousePress(1, Qt::RightButton);
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee})) << "no rebuild";
    EXPECT_EQ(List().SelectedName(), Kim);
    ClickRow(List(), 1);
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee}));
    EXPECT_EQ(Figures(), QStringLiteral("30||"));
    EXPECT_EQ(Text("KidName"), Lee);
}

TEST_F(DisplayAccountListTest, PressByAParentRebuildsTheListThoughActivationKnowsNoParent) {
    OpenView(QStringLiteral("Mum"), QStringLiteral("Parent"));
    MakeChild(QStringLiteral("Zoe"), 0);
    ClickRow(List(), 0);
    EXPECT_EQ(List().topLevelItemCount(), 3);
    EXPECT_EQ(Figures(), KimsFigures);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    MousePress(1, Qt::RightButton);
    EXPECT_EQ(Names(List()), QStringList({Kim, QStringLiteral("Zoe")}));
}

TEST_F(DisplayAccountListTest, DragOverTheListRunsTheClickLogic) {
    OpenView();
    ClickRow(List(), 0);
    Database().AddPoints(Kim, 1, false);
    EXPECT_TRUE(List().viewport()->acceptDrops()) << "or no drag comes here";
    QMimeData data;
    data.setText(QStringLiteral("anything"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(List().viewport(), &enter);
    EXPECT_EQ(Text("Pointslbl"), QStringLiteral("81"));
    Database().AddPoints(Kim, 1, false);
    QDragMoveEvent move(QPoint(6, 6), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(List().viewport(), &move);
    EXPECT_EQ(Text("Pointslbl"), QStringLiteral("82"));
    EXPECT_FALSE(move.isAccepted()) << "nothing can be dropped";
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee}));
}

TEST_F(DisplayAccountListTest, MouseDraggedFromRowToRowShowsEachOnItsWay) {
    OpenView();
    MousePress(0);
    const QPoint second = List().visualItemRect(List().topLevelItem(1)).center();
    QMouseEvent move(QEvent::MouseMove, second, List().viewport()->mapToGlobal(second),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(List().viewport(), &move);
    EXPECT_EQ(Text("KidName"), Lee);
    MouseRelease(1);
    EXPECT_EQ(List().SelectedName(), Lee);
    EXPECT_EQ(Figures(), QStringLiteral("30||"));
}

} // namespace
