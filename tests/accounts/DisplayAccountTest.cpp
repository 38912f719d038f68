#include "platform/forms/DefaultForms.h"
#include "store/TableNames.h"
#include "tests/accounts/AccountsTest.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace {

const QString DeleteQuestion = QStringLiteral("Are you sure you want to delete this account?");
const QString CashOutQuestion = QStringLiteral("Are you sure you want to cash out?");
const QString ResetQuestion = QStringLiteral("Are you sure you want to reset?");
const QString PrintQuestion = QStringLiteral("Are you sure you want to print?");

const QString NoFigures = QStringLiteral("||");
const QString KimsFigures = QStringLiteral("80|Red bike|500");

class DisplayAccountTest : public AccountsTest {
protected:
    /// The last box was a question with Yes and No under the program's title.
    void ExpectQuestion() const {
        ASSERT_FALSE(Boxes.Shown().isEmpty());
        EXPECT_EQ(Boxes.Shown().last().Title, QStringLiteral("Sparkit Dutygrid"));
        EXPECT_EQ(Boxes.Shown().last().Buttons, PromptButtons::YesNo);
    }
};

TEST_F(DisplayAccountTest, FormHasItsTitleAndCaptions) {
    EXPECT_EQ(OpenView().Caption(), QStringLiteral("Sparkit Dutygrid Account Viewer"));
    const QList<std::pair<const char*, const char*>> buttons = {
        {"Command1", "Cash Out Points"},
        {"cmdReset", "Reset Points to 0"},
        {"Exitbtn", "Review Dutygrid"},
        {"Incentivesbtn", "Change/Add Incentives"},
        {"Infobtn", "Print Sparkits"},
        {"cmdChgPic", "Change User Picture"},
        {"Okbtn", "Ok"}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(Find<QPushButton>(View(), QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
    EXPECT_EQ(Text("Label2"), QStringLiteral("Sparkits"));
    EXPECT_EQ(Text("Label1"), QStringLiteral("Total Incentive Points"));
    EXPECT_EQ(Text("Label3"), QStringLiteral("Goal"));
    EXPECT_EQ(Text("Label6"), QStringLiteral("Points Needed: "));
}

TEST_F(DisplayAccountTest, AdultSeesEveryChildAndAllActionsWithNothingSelected) {
    OpenView();
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee}));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_EQ(Text("KidName"), QString());
    EXPECT_EQ(Text("Label5"), QStringLiteral("0"));
    EXPECT_FALSE(PictureColor("Image1").isValid());
    EXPECT_FALSE(PictureColor("Image2").isValid());
    for (const char* control : {"StudentsList", "Label2", "Command1", "cmdReset", "Exitbtn",
                                "Incentivesbtn", "Infobtn", "cmdChgPic", "Okbtn"})
        EXPECT_TRUE(Shown(control)) << control;
    Shoot(View(), QStringLiteral("DisplayAccount-nobody"));
}

TEST_F(DisplayAccountTest, ClickByAnAdultSelectsTheRowAndShowsItsAccount) {
    OpenView();
    ClickRow(List(), 0);
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), KimsFigures);
    EXPECT_EQ(Text("KidName"), Kim);
    EXPECT_EQ(Text("Label5"), QStringLiteral("420"));
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::red));
    EXPECT_EQ(PictureColor("Image2"), QColor(Qt::red));
    Shoot(View(), QStringLiteral("DisplayAccount-adult"));
    ClickRow(List(), 1);
    EXPECT_EQ(List().SelectedName(), Lee);
    EXPECT_EQ(Figures(), QStringLiteral("30||"));
    EXPECT_EQ(Text("KidName"), Lee);
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::green));
    EXPECT_FALSE(PictureColor("Image2").isValid());
}

TEST_F(DisplayAccountTest, AdultChoosesAChildByKeys) {
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

TEST_F(DisplayAccountTest, PressByAnAdultRebuildsTheListAndTheReleaseShowsTheRowPressed) {
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

TEST_F(DisplayAccountTest, SecondPressOfADoubleClickIsAPressLikeTheFirst) {
    OpenView();
    DoubleClickRow(List(), 0);
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), NoFigures);
    MouseRelease(0);
    EXPECT_EQ(Figures(), KimsFigures);
}

TEST_F(DisplayAccountTest, PressInAScrolledListSelectsTheRowUnderTheMouse) {
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
    Shoot(MainWindow(), QStringLiteral("DisplayAccount-30-children"));
    Boxes.Expect(ResetQuestion, PromptAnswer::No);
    PressButton("cmdReset");
    EXPECT_EQ(List().verticalScrollBar()->value(), top);
}

TEST_F(DisplayAccountTest, ClickBelowTheLastRowByAnAdultEmptiesTheView) {
    OpenView();
    ClickRow(List(), 0);
    ClickEmptyPart(List());
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_EQ(Text("KidName"), QString());
}

TEST_F(DisplayAccountTest, RightPressAsksAboutTheRowSelectedBeforeAndYesDeletesIt) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes,
                 [] { EXPECT_EQ(List().SelectedName(), Kim) << "not the row under the mouse"; });
    MousePress(1, Qt::RightButton);
    ExpectQuestion();
    EXPECT_EQ(Names(List()), QStringList(Lee));
    EXPECT_EQ(Database().RetreveState(Kim), QString());
    EXPECT_EQ(Database().RetreveState(Lee), QStringLiteral("Student"));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, RightPressAnsweredNoDeletesNothingAndRebuildsTheList) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(DeleteQuestion, PromptAnswer::No);
    MousePress(0, Qt::RightButton);
    EXPECT_EQ(Names(List()), QStringList({Kim, Lee}));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, MiddlePressByAnAdultAsksNothingAndRebuildsTheList) {
    OpenView();
    ClickRow(List(), 0);
    MousePress(0, Qt::MiddleButton);
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, WithNoRowSelectedCashOutResetAndDeleteAffectNoAccount) {
    OpenView();
    const QStringList before = Rows(UsersTable);
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    PressButton("Command1");
    Boxes.Expect(ResetQuestion, PromptAnswer::Yes);
    PressButton("cmdReset");
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    MousePress(0, Qt::RightButton);
    EXPECT_EQ(Rows(UsersTable), before);
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, PressByAChildDoesNothingOfItsOwn) {
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

TEST_F(DisplayAccountTest, PressByAParentRebuildsTheListThoughActivationKnowsNoParent) {
    OpenView(QStringLiteral("Mum"), QStringLiteral("Parent"));
    MakeChild(QStringLiteral("Zoe"), 0);
    ClickRow(List(), 0);
    EXPECT_EQ(List().topLevelItemCount(), 3);
    EXPECT_EQ(Figures(), KimsFigures);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    MousePress(1, Qt::RightButton);
    EXPECT_EQ(Names(List()), QStringList({Lee, QStringLiteral("Zoe")}));
}

TEST_F(DisplayAccountTest, DragOverTheListRunsTheClickLogic) {
    OpenView();
    ClickRow(List(), 0);
    Database().AddPoints(Kim, 1, false);
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

TEST_F(DisplayAccountTest, MouseDraggedFromRowToRowShowsEachOnItsWay) {
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

TEST_F(DisplayAccountTest, WithoutAnIncentiveNothingIsNeededAndCashOutTakesNothing) {
    OpenView();
    ClickRow(List(), 1);
    EXPECT_EQ(Text("ToyValue"), QString());
    EXPECT_EQ(Text("Label5"), QStringLiteral("0"));
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    PressButton("Command1");
    EXPECT_EQ(StoredPoints(Lee), QStringLiteral("30"));
}

TEST_F(DisplayAccountTest, BalanceAboveTheCostNeedsNothing) {
    MakeChild(QStringLiteral("Ann"), 700, QStringLiteral("Ball"), 500);
    OpenView();
    ClickRow(List(), 2);
    EXPECT_EQ(Figures(), QStringLiteral("700|Ball|500"));
    EXPECT_EQ(Text("Label5"), QStringLiteral("0"));
}

TEST_F(DisplayAccountTest, PointsNeededAreWrittenIn24PointsWhateverTheyAre) {
    OpenView();
    auto& needed = Find<QLabel>(View(), QStringLiteral("Label5"));
    for (const int row : {0, 1}) {
        needed.setFont(QFont(needed.font().family(), 7));
        ClickRow(List(), row);
        EXPECT_EQ(needed.font().pointSize(), 24);
    }
}

TEST_F(DisplayAccountTest, CashOutTakesTheCostOffThePointsAndRefreshes) {
    Database().AddPoints(Kim, 500, false);
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    PressButton("Command1");
    ExpectQuestion();
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
    ClickRow(List(), 0);
    EXPECT_EQ(Figures(), KimsFigures);
}

TEST_F(DisplayAccountTest, CashOutOfTheWholeBalanceLeavesZero) {
    Database().AddPoints(Kim, 420, false);
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    PressButton("Command1");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("0"));
}

TEST_F(DisplayAccountTest, CashOutBeyondThePointsIsRefusedWithAMessage) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(CashOutQuestion, PromptAnswer::Yes);
    Boxes.Expect(QStringLiteral("Sorry you have insufficient points to clear the account"));
    PressButton("Command1");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(Figures(), NoFigures) << "the refresh comes all the same";
}

TEST_F(DisplayAccountTest, CashOutAnsweredNoChangesNothingAndRefreshes) {
    Database().AddPoints(Kim, 500, false);
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(CashOutQuestion, PromptAnswer::No);
    PressButton("Command1");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("580"));
    EXPECT_EQ(List().SelectedName(), QString());
}

TEST_F(DisplayAccountTest, ResetSetsThePointsTo0AndKeepsTheIncentive) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(ResetQuestion, PromptAnswer::Yes);
    PressButton("cmdReset");
    ExpectQuestion();
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("0"));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_EQ(StoredPoints(Lee), QStringLiteral("30"));
    EXPECT_EQ(List().SelectedName(), QString());
}

TEST_F(DisplayAccountTest, ResetAnsweredNoChangesNothing) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(ResetQuestion, PromptAnswer::No);
    PressButton("cmdReset");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(List().SelectedName(), QString());
}

TEST_F(DisplayAccountTest, PrintPutsAllAccountsOnPaperAfterAYes) {
    OpenView();
    ClickRow(List(), 0);
    Boxes.Expect(PrintQuestion, PromptAnswer::No);
    PressButton("Infobtn");
    ExpectQuestion();
    EXPECT_TRUE(Paper.Files().isEmpty());
    EXPECT_EQ(List().SelectedName(), QString());
    Boxes.Expect(PrintQuestion, PromptAnswer::Yes);
    PressButton("Infobtn");
    ASSERT_EQ(Paper.Files().size(), 1);
    const QString text = PdfPrintTarget::TextOf(Paper.Files().first());
    EXPECT_TRUE(text.contains(QStringLiteral("User Name Is: Mum")));
    EXPECT_TRUE(text.contains(QStringLiteral("User Name Is: Kim")));
}

TEST_F(DisplayAccountTest, IncentivesOpenTheEditorForTheRowSelected) {
    OpenView();
    PressButton("Incentivesbtn");
    EXPECT_EQ(Default<AddIncentives>().AccountName, QString());
    EXPECT_TRUE(IsShown(QStringLiteral("AddIncentives")));
    View().SetFocus();
    Settle();
    ClickRow(List(), 1);
    PressButton("Incentivesbtn");
    EXPECT_EQ(Default<AddIncentives>().AccountName, Lee);
}

TEST_F(DisplayAccountTest, ViewRefreshesItselfWhenTheEditorCloses) {
    OpenView();
    ClickRow(List(), 0);
    PressButton("Incentivesbtn");
    MakeChild(QStringLiteral("Zoe"), 0);
    Click(Find(Default<AddIncentives>(), QStringLiteral("AddPoints")));
    EXPECT_FALSE(IsShown(QStringLiteral("AddIncentives")));
    EXPECT_EQ(List().topLevelItemCount(), 3);
    EXPECT_EQ(List().SelectedName(), QString());
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, ReviewOpensBesideTheViewWhichStays) {
    OpenView();
    PressButton("Exitbtn");
    EXPECT_TRUE(IsShown(QStringLiteral("WeekChartRepresentation")));
    EXPECT_TRUE(IsShown(QStringLiteral("DisplayAccount")));
}

TEST_F(DisplayAccountTest, OkUnloadsTheForm) {
    const QPointer<DisplayAccount> view = &OpenView();
    PressButton("Okbtn");
    EXPECT_TRUE(view.isNull());
    EXPECT_EQ(ExistingForm(QStringLiteral("DisplayAccount")), nullptr);
}

TEST_F(DisplayAccountTest, AdultChangesThePictureOfTheRowSelected) {
    OpenView();
    ClickRow(List(), 1);
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("UsersPictures/b.png"), 0xff0000ff);
    PressButton("cmdChgPic");
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(Path(QStringLiteral("UsersPictures"))));
    EXPECT_EQ(StoredPictureColor(Lee), QColor(Qt::blue));
    EXPECT_EQ(StoredPictureColor(Kim), QColor(Qt::red));
    EXPECT_EQ(List().SelectedName(), QString()) << "refreshed";
}

TEST_F(DisplayAccountTest, ParentChangesThePictureOfTheRowSelected) {
    OpenView(QStringLiteral("Mum"), QStringLiteral("Parent"));
    ClickRow(List(), 1);
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("UsersPictures/b.png"), 0xff0000ff);
    PressButton("cmdChgPic");
    EXPECT_EQ(StoredPictureColor(Lee), QColor(Qt::blue));
}

TEST_F(DisplayAccountTest, PictureWithNoRowSelectedIsNobodys) {
    OpenView();
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("UsersPictures/b.png"), 0xff0000ff);
    PressButton("cmdChgPic");
    EXPECT_EQ(StoredPictureColor(Lee), QColor(Qt::green));
    EXPECT_EQ(StoredPictureColor(Kim), QColor(Qt::red));
}

TEST_F(DisplayAccountTest, CancelledDialogChangesNoPictureEvenAfterAFormerChoice) {
    OpenView();
    ClickRow(List(), 0);
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("UsersPictures/b.png"), 0xff0000ff);
    PressButton("cmdChgPic");
    ClickRow(List(), 1);
    DesktopCalls.FileAnswers += std::nullopt;
    PressButton("cmdChgPic");
    EXPECT_EQ(StoredPictureColor(Kim), QColor(Qt::blue));
    EXPECT_EQ(StoredPictureColor(Lee), QColor(Qt::green));
    EXPECT_EQ(List().SelectedName(), QString()) << "refreshed";
}

TEST_F(DisplayAccountTest, MissingPictureFileIsReportedAndTheFormerOneStays) {
    OpenView();
    ClickRow(List(), 0);
    DesktopCalls.FileAnswers += Path(QStringLiteral("gone.png"));
    Boxes.Expect(RuntimeError(ErrorNumber::FileNotFound).Report());
    PressButton("cmdChgPic");
    EXPECT_EQ(StoredPictureColor(Kim), QColor(Qt::red));
}

TEST_F(DisplayAccountTest, ChildChangesItsOwnPictureWhicheverRowItLooksAt) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    ClickRow(List(), 1);
    DesktopCalls.FileAnswers += PictureFile(QStringLiteral("UsersPictures/b.png"), 0xff0000ff);
    PressButton("cmdChgPic");
    EXPECT_EQ(StoredPictureColor(Kim), QColor(Qt::blue));
    EXPECT_EQ(StoredPictureColor(Lee), QColor(Qt::green));
    EXPECT_EQ(List().SelectedName(), Kim) << "refreshed";
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::blue));
}

TEST_F(DisplayAccountTest, ChildThatMayNotSeeOthersSeesItsOwnFiguresAndNoList) {
    OpenView(Kim, QStringLiteral("Student"));
    for (const char* control :
         {"StudentsList", "Label2", "Exitbtn", "Command1", "cmdReset", "Infobtn", "Incentivesbtn"})
        EXPECT_FALSE(Shown(control)) << control;
    EXPECT_TRUE(Shown("Okbtn"));
    EXPECT_TRUE(Shown("cmdChgPic"));
    EXPECT_EQ(Figures(), KimsFigures);
    EXPECT_EQ(Text("KidName"), Kim);
    EXPECT_EQ(Text("Label5"), QStringLiteral("420"));
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::red));
    EXPECT_EQ(PictureColor("Image2"), QColor(Qt::red));
    Shoot(View(), QStringLiteral("DisplayAccount-child"));
}

TEST_F(DisplayAccountTest, ChildThatMaySeeOthersHasTheListAndBlankFiguresUntilItClicks) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_TRUE(Shown("StudentsList"));
    EXPECT_TRUE(Shown("Label2"));
    for (const char* control : {"Exitbtn", "Command1", "cmdReset", "Infobtn", "Incentivesbtn"})
        EXPECT_FALSE(Shown(control)) << control;
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_EQ(Text("KidName"), Kim);
    EXPECT_EQ(Text("Label5"), QStringLiteral("420"));
    EXPECT_EQ(PictureColor("Image1"), QColor(Qt::red));
    ClickRow(List(), 0);
    EXPECT_EQ(Figures(), KimsFigures);
    Shoot(View(), QStringLiteral("DisplayAccount-child-all"));
}

TEST_F(DisplayAccountTest, EachActivationReadsAnewWhatAChildMaySee) {
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_FALSE(Shown("StudentsList"));
    LetChildrenSeeOthers(true);
    ActivateAgain();
    EXPECT_TRUE(Shown("StudentsList"));
    EXPECT_EQ(Figures(), NoFigures);
    LetChildrenSeeOthers(false);
    ActivateAgain();
    EXPECT_FALSE(Shown("StudentsList"));
    EXPECT_EQ(Figures(), KimsFigures);
}

TEST_F(DisplayAccountTest, OtherKindsLeaveTheButtonsAsTheyWere) {
    OpenView(Kim, QStringLiteral("Student"));
    CurrentState = QStringLiteral("Parent");
    CurrentUser = QStringLiteral("Mum");
    ActivateAgain();
    EXPECT_FALSE(Shown("Command1"));
    EXPECT_EQ(Figures(), NoFigures);
    CurrentState = QStringLiteral("Teacher");
    ActivateAgain();
    EXPECT_TRUE(Shown("Command1"));
    CurrentState = QStringLiteral("Kid");
    CurrentUser = Kim;
    ActivateAgain();
    EXPECT_TRUE(Shown("Command1"));
    EXPECT_EQ(List().SelectedName(), Kim);
    EXPECT_EQ(Figures(), NoFigures);
}

TEST_F(DisplayAccountTest, AdultAfterAChildSeesTheListAndTheButtonsAgain) {
    OpenView(Kim, QStringLiteral("Student"));
    CurrentState = QStringLiteral("Teacher");
    CurrentUser = QStringLiteral("Mum");
    ActivateAgain();
    for (const char* control : {"StudentsList", "Label2", "Command1", "cmdReset", "Infobtn"})
        EXPECT_TRUE(Shown(control)) << control;
    ClickRow(List(), 0);
    EXPECT_EQ(Figures(), KimsFigures);
}

TEST_F(DisplayAccountTest, LongNamesAndTextLikeMarkupStandAsTheyAre) {
    const QString longName = QString(50, QLatin1Char('W'));
    const QString markup = QStringLiteral("<b>Bo'b\"/..</b>");
    MakeChild(longName, 1, QString(255, QLatin1Char('M')), 32767);
    MakeChild(markup, 2, markup, 1);
    OpenView();
    const int width = View().width();
    ClickRow(List(), 2);
    EXPECT_EQ(Text("KidName"), longName);
    EXPECT_EQ(Text("Label5"), QStringLiteral("32766"));
    EXPECT_EQ(View().width(), width);
    Shoot(View(), QStringLiteral("DisplayAccount-long"));
    ClickRow(List(), 3);
    EXPECT_EQ(Text("KidName"), markup);
    EXPECT_EQ(Find<QLabel>(View(), QStringLiteral("KidName")).textFormat(), Qt::PlainText);
    EXPECT_EQ(Find<QLabel>(View(), QStringLiteral("ToyName")).textFormat(), Qt::PlainText);
}

TEST_F(DisplayAccountTest, PicturesKeepTheirProportions) {
    QImage wide(300, 100, QImage::Format_RGB32);
    wide.fill(Qt::red);
    const QString file = Path(QStringLiteral("UsersPictures/wide.png"));
    ASSERT_TRUE(wide.save(file));
    OpenView();
    ClickRow(List(), 0);
    DesktopCalls.FileAnswers += file;
    PressButton("cmdChgPic");
    ClickRow(List(), 0);
    const QSizeF shown =
        Find<QLabel>(View(), QStringLiteral("Image1")).pixmap().deviceIndependentSize();
    EXPECT_NEAR(shown.width() / shown.height(), 3, 0.1);
    EXPECT_GT(shown.width(), 80);
}

} // namespace
