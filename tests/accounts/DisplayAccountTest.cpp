#include "tests/accounts/DisplayAccountTest.h"
#include "platform/forms/DefaultForms.h"
#include "tests/common/ReadLock.h"
#include "widgets/FittingLabel.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

const QString PrintQuestion = QStringLiteral("Are you sure you want to print?");

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
}

TEST_F(DisplayAccountTest, WhileNobodyIsChosenItSaysHowToChoose) {
    OpenView();
    EXPECT_EQ(Text("NobodyChosen"),
              QStringLiteral("Choose a Sparkit in the list to see points and goal."));
    EXPECT_TRUE(Shown("NobodyChosen"));
    ClickRow(List(), 0);
    EXPECT_FALSE(Shown("NobodyChosen"));
}

TEST_F(DisplayAccountTest, AChildThatSeesTheOthersIsToldToChooseUntilFiguresStand) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    EXPECT_EQ(Text("KidName"), Kim);
    EXPECT_EQ(Figures(), NoFigures);
    EXPECT_TRUE(Shown("NobodyChosen"));
    ClickRow(List(), 0);
    EXPECT_FALSE(Shown("NobodyChosen"));
    EXPECT_TRUE(Shown("Pointslbl"));
    LetChildrenSeeOthers(false);
    ActivateAgain();
    EXPECT_FALSE(Shown("NobodyChosen")) << "there is no list to choose from";
}

TEST_F(DisplayAccountTest, TheHintIsWholeInThePlaceOfThePoints) {
    LetChildrenSeeOthers(true);
    OpenView(Kim, QStringLiteral("Student"));
    const auto place = [](const char* part) {
        return Find(View(), QString::fromLatin1(part)).geometry();
    };
    const auto& hint = Find<QLabel>(View(), QStringLiteral("NobodyChosen"));
    EXPECT_LE(hint.heightForWidth(hint.width()), hint.height());
    for (const char* other : {"Image1", "KidName", "Label1"})
        EXPECT_FALSE(hint.geometry().intersects(place(other))) << other;
    EXPECT_TRUE(Find(View(), QStringLiteral("AccountCard")).rect().contains(hint.geometry()));
    const auto places = [&place] {
        return QList<QRect>{place("AccountCard"), place("GoalCard"), place("Image2"),
                            place("Label6")};
    };
    const QList<QRect> others = places();
    const QRect before = hint.geometry();
    ClickRow(List(), 0);
    EXPECT_EQ(place("Pointslbl").topLeft(), before.topLeft());
    EXPECT_EQ(places(), others) << "nothing moves";
}

TEST_F(DisplayAccountTest, ListCardsAndOkEndOnOneLine) {
    OpenView();
    for (const int row : {0, 1}) {
        ClickRow(List(), row);
        for (const char* part : {"StudentsList", "GoalCard", "Okbtn"}) {
            const QWidget& shown = Find(View(), QString::fromLatin1(part));
            EXPECT_EQ(shown.mapTo(&View(), shown.rect().bottomLeft()).y(), View().height() - 1 - 8)
                << part;
        }
    }
}

TEST_F(DisplayAccountTest, WhatHasBeenStoredIsToldAboveOk) {
    OpenView();
    const QRect before = View().geometry();
    View().ShowStored(QStringLiteral("Maximiliana-Theresia"), QStringLiteral("incentive"));
    Settle();
    const auto& told = Find<FittingLabel>(View(), QStringLiteral("Stored"));
    EXPECT_TRUE(told.TextFits());
    const QRect ok = Find(View(), QStringLiteral("Okbtn")).geometry();
    EXPECT_EQ(told.geometry().bottom() + 1 + 8, ok.top());
    EXPECT_EQ(told.geometry().right(), ok.right());
    EXPECT_EQ(View().geometry(), before);
    LookAt(View(), QStringLiteral("DisplayAccount-stored"));
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
    ExpectQuestion(true);
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
    ExpectQuestion(true);
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
    ExpectQuestion(false);
    EXPECT_TRUE(Paper.Files().isEmpty());
    EXPECT_EQ(List().SelectedName(), QString());
    Boxes.Expect(PrintQuestion, PromptAnswer::Yes);
    PressButton("Infobtn");
    ASSERT_EQ(Paper.Files().size(), 1);
    const QString text = PdfPrintTarget::TextOf(Paper.Files().value(0));
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
    Boxes.ExpectError(ErrorNumber::FileNotFound);
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
    LookAt(View(), QStringLiteral("DisplayAccount-child"));
}

TEST_F(DisplayAccountTest, ChildWhoseAccountIsGoneStillSeesItsName) {
    OpenView(QStringLiteral("Zoe"), QStringLiteral("Student"));
    EXPECT_EQ(Text("KidName"), QStringLiteral("Zoe"));
    EXPECT_EQ(Figures(), NoFigures);
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
    LookAt(View(), QStringLiteral("DisplayAccount-long"));
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

TEST_F(DisplayAccountTest, AChildThatCouldNotBeDeletedStaysInTheList) {
    OpenView();
    const int children = List().topLevelItemCount();
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Boxes.ExpectError(ErrorNumber::EngineFault, OtherCopyWrites);
    {
        const ReadLock lock(Path(QStringLiteral("Database/Charts.mdb")));
        MousePress(0, Qt::RightButton);
    }
    Boxes.VerifyAllShown();
    EXPECT_EQ(List().topLevelItemCount(), children);
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
}

} // namespace
