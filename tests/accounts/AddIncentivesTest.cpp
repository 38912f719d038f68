#include "platform/forms/DefaultForms.h"
#include "store/TableNames.h"
#include "tests/accounts/AccountsTest.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

namespace {

const QString NoPictureQuestion =
    QStringLiteral("You haven't selected a picture for this incentive, are you sure you want to "
                   "continue?");

class AddIncentivesTest : public AccountsTest {
protected:
    /// The editor for a child, opened from the account view.
    static AddIncentives& OpenEditor(int row = 0) {
        OpenView();
        ClickRow(List(), row);
        PressButton("Incentivesbtn");
        return Editor();
    }

    static AddIncentives& Editor() { return Default<AddIncentives>(); }
    static QLineEdit& Box(const char* name) {
        return Find<QLineEdit>(Editor(), QString::fromLatin1(name));
    }
    static void PressIn(const char* button) { Click(Find(Editor(), QString::fromLatin1(button))); }
    void Browse(const std::optional<QString>& answer) {
        DesktopCalls.FileAnswers += answer;
        PressIn("Command1");
    }
    static QColor Preview() { return ColorOfLabel(Editor(), QStringLiteral("Image1")); }
    static bool IsOpen() { return IsShown(QStringLiteral("AddIncentives")); }
    static QString BluePicture() {
        return PictureFile(QStringLiteral("IncentivesPictures/blue.png"), 0xff0000ff);
    }
    static QString Frontmost() {
        const auto& area = Find<QMdiArea>(MainWindow(), QStringLiteral("Area"));
        const QMdiSubWindow* front = area.activeSubWindow();
        return front == nullptr ? QString() : front->widget()->objectName();
    }
};

TEST_F(AddIncentivesTest, FormHasItsTitleCaptionsAndABlankPreview) {
    EXPECT_EQ(OpenEditor().Caption(), QStringLiteral("Points and Incentive Editor"));
    EXPECT_EQ(Editor().AccountName, Kim);
    const QList<std::pair<const char*, const char*>> buttons = {
        {"Command1", "Browse  For Incentive Picture"},
        {"AddIncentive", "Add"},
        {"AddPoints", "Add"},
        {"Close", "Exit"}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(Find<QPushButton>(Editor(), QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
    const QList<std::pair<const char*, const char*>> labels = {
        {"ToyName", "Incentive Name"},
        {"Value", "Incentive Value"},
        {"Points", "Enter Number of Points to Add to Account Total"}};
    for (const auto& [name, caption] : labels) {
        bool found = false;
        for (const QLabel* label : Editor().findChildren<QLabel*>())
            found = found ||
                    (label->buddy() == &Box(name) && label->text() == QString::fromLatin1(caption));
        EXPECT_TRUE(found) << caption;
        EXPECT_EQ(Box(name).text(), QString());
    }
    EXPECT_EQ(Find<QLabel>(Editor(), QStringLiteral("Picturelbl")).text(),
              QStringLiteral("Picture"));
    EXPECT_EQ(Find(Editor(), QStringLiteral("IncentiveGroup")).property("title").toString(),
              QStringLiteral("Add/Change Incentive"));
    EXPECT_EQ(Find(Editor(), QStringLiteral("PointsGroup")).property("title").toString(),
              QStringLiteral("Add Points"));
    EXPECT_FALSE(Preview().isValid());
}

TEST_F(AddIncentivesTest, AddWithBothBoxesEmptyClearsNameAndCostAndStoresTheBike) {
    OpenEditor();
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("untouched|untouched")) << "both are Null";
    const QImage bike(Path(QStringLiteral("IncentivesPictures/Bike.gif")));
    ASSERT_FALSE(bike.isNull());
    EXPECT_EQ(StoredToyPicture(Kim).convertToFormat(QImage::Format_RGB32),
              bike.convertToFormat(QImage::Format_RGB32));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Frontmost(), QStringLiteral("DisplayAccount"));
}

TEST_F(AddIncentivesTest, AddStoresNameCostAndThePictureChosen) {
    OpenEditor();
    Type(Box("ToyName"), QStringLiteral("Zoo's \"big\" day"));
    Type(Box("Value"), QStringLiteral("250"));
    Browse(BluePicture());
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(Path(QStringLiteral("IncentivesPictures"))));
    EXPECT_EQ(Preview(), QColor(Qt::blue));
    const auto& preview = Find<QLabel>(Default<AddIncentives>(), QStringLiteral("Image1"));
    EXPECT_LE(preview.pixmap().height(), preview.height() - 10) << "its frame is to be seen";
    EXPECT_LE(preview.pixmap().width(), preview.width() - 10);
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Zoo's \"big\" day|250"));
    EXPECT_EQ(StoredToyPicture(Kim).pixelColor(3, 3), QColor(Qt::blue));
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(StoredToy(Lee), QStringLiteral("untouched|untouched"));
    ClickRow(List(), 0);
    EXPECT_EQ(Figures(), QStringLiteral("80|Zoo's \"big\" day|250"));
    EXPECT_EQ(PictureColor("Image2"), QColor(Qt::blue));
}

TEST_F(AddIncentivesTest, CostIsTheNumberAtTheStartOfTheText) {
    OpenEditor();
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Type(Box("Value"), QStringLiteral("12abc"));
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Ball|12"));
}

TEST_F(AddIncentivesTest, EnterInTheBoxOfThePointsAddsThemAndNoIncentive) {
    OpenEditor();
    Type(Box("ToyName"), QStringLiteral("Kite"));
    Type(Box("Points"), QStringLiteral("7"));
    Press(Box("Points"), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("87"));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
}

TEST_F(AddIncentivesTest, AddPointsWithAnEmptyBoxAddsNothing) {
    OpenEditor();
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_FALSE(IsOpen());
}

TEST_F(AddIncentivesTest, HalfAPointIsRoundedToTheEvenNeighbour) {
    OpenEditor();
    Type(Box("Points"), QStringLiteral("2.5"));
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("82"));
}

TEST_F(AddIncentivesTest, PointsThatAreNoNumberAddNothing) {
    OpenEditor();
    Type(Box("Points"), QStringLiteral("many 5"));
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
}

TEST_F(AddIncentivesTest, LeadingMinusTakesPointsOffAndTheIncentiveStays) {
    OpenEditor();
    Type(Box("Points"), QStringLiteral("-30"));
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("50"));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_EQ(StoredPoints(Lee), QStringLiteral("30"));
}

TEST_F(AddIncentivesTest, TotalBelowZeroIsRefusedWithAMessageAndTheFormUnloads) {
    OpenEditor();
    Type(Box("Points"), QStringLiteral("-81"));
    Boxes.Expect(QStringLiteral("Sorry you have insufficient points to clear the account"));
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_FALSE(IsOpen());
}

TEST_F(AddIncentivesTest, NumberBeyond16BitsOverflowsAndStoresNothing) {
    OpenEditor();
    Type(Box("Points"), QStringLiteral("99999"));
    Boxes.ExpectError(ErrorNumber::Overflow);
    PressIn("AddPoints");
    Type(Box("Value"), QStringLiteral("32768"));
    Boxes.ExpectError(ErrorNumber::Overflow);
    PressIn("AddIncentive");
    Type(Box("Points"), QStringLiteral("32767"));
    Boxes.ExpectError(ErrorNumber::Overflow);
    PressIn("AddPoints");
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_TRUE(IsOpen());
}

TEST_F(AddIncentivesTest, NameLongerThanItsFieldIsReportedAndNeverCut) {
    OpenEditor();
    Type(Box("ToyName"), QString(256, QLatin1Char('x')));
    Boxes.ExpectError(ErrorNumber::FieldTooSmall);
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_TRUE(IsOpen());
    const QString longest(255, QLatin1Char('x'));
    Type(Box("ToyName"), longest);
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), longest + QStringLiteral("|untouched"));
}

TEST_F(AddIncentivesTest, UnreadableFileLeavesThePreviewAndReportsNothing) {
    OpenEditor();
    Browse(BluePicture());
    QFile text(Path(QStringLiteral("text.txt")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    Browse(text.fileName());
    EXPECT_EQ(Preview(), QColor(Qt::blue));
    Browse(Path(QStringLiteral("gone.png")));
    EXPECT_EQ(Preview(), QColor(Qt::blue));
    EXPECT_TRUE(IsOpen());
}

TEST_F(AddIncentivesTest, MissingPictureFileIsReportedAndTheFormerIncentiveStays) {
    OpenEditor();
    Browse(Path(QStringLiteral("gone.png")));
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    PressIn("AddIncentive");
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_EQ(StoredToyPicture(Kim).pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(AddIncentivesTest, CancelledBrowseEmptiesTheNameAndAYesStoresNoPicture) {
    OpenEditor();
    Browse(BluePicture());
    Browse(std::nullopt);
    EXPECT_FALSE(Preview().isValid()) << "the empty name is the empty picture's";
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Type(Box("Value"), QStringLiteral("9"));
    Boxes.Expect(NoPictureQuestion, PromptAnswer::Yes);
    PressIn("AddIncentive");
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(Boxes.Last().Buttons, PromptButtons::YesNo);
    EXPECT_FALSE(Boxes.Last().BeginsOnNo) << "nothing is lost";
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Ball|9"));
    EXPECT_TRUE(StoredToyPicture(Kim).isNull());
    EXPECT_FALSE(IsOpen());
}

TEST_F(AddIncentivesTest, NoToAMissingPictureBrowsesAgainAndStoresNothing) {
    OpenEditor();
    Browse(std::nullopt);
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Boxes.Expect(NoPictureQuestion, PromptAnswer::No);
    Boxes.Expect(QStringLiteral("Please select a picture"), PromptAnswer::Ok,
                 [this] { EXPECT_EQ(DesktopCalls.FileFolders.size(), 1); });
    DesktopCalls.FileAnswers += BluePicture();
    PressIn("AddIncentive");
    EXPECT_EQ(DesktopCalls.FileFolders.size(), 2);
    EXPECT_EQ(DesktopCalls.FileFolders.value(1), Path(QStringLiteral("IncentivesPictures")));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_EQ(StoredToyPicture(Kim).pixelColor(3, 3), QColor(Qt::red));
    EXPECT_FALSE(IsOpen());
}

TEST_F(AddIncentivesTest, ExitStoresNothingAndBringsTheAccountViewToTheFront) {
    OpenEditor();
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Type(Box("Points"), QStringLiteral("5"));
    DefaultForm(QStringLiteral("OtherOptions")).Show();
    Settle();
    Editor().SetFocus();
    Settle();
    PressIn("Close");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Frontmost(), QStringLiteral("DisplayAccount"));
    EXPECT_EQ(StoredToy(Kim), QStringLiteral("Red bike|500"));
    EXPECT_EQ(StoredPoints(Kim), QStringLiteral("80"));
    EXPECT_EQ(List().SelectedName(), QString()) << "refreshed";
}

TEST_F(AddIncentivesTest, WithoutAnAccountNothingIsWritten) {
    OpenView();
    PressButton("Incentivesbtn");
    const QStringList before = Rows(UsersTable);
    Type(Box("ToyName"), QStringLiteral("Ball"));
    PressIn("AddIncentive");
    PressButton("Incentivesbtn");
    Type(Box("Points"), QStringLiteral("5"));
    PressIn("AddPoints");
    EXPECT_EQ(Rows(UsersTable), before);
}

TEST_F(AddIncentivesTest, FormIsFreshEachTime) {
    OpenEditor();
    Type(Box("ToyName"), QStringLiteral("Ball"));
    Browse(std::nullopt);
    PressIn("Close");
    ClickRow(List(), 1);
    PressButton("Incentivesbtn");
    EXPECT_EQ(Box("ToyName").text(), QString());
    PressIn("AddIncentive");
    EXPECT_FALSE(StoredToyPicture(Lee).isNull()) << "the preset picture is back";
}

TEST_F(AddIncentivesTest, WhoseIncentiveItIsStandsAbove) {
    const auto shown = [] {
        return Find<QLabel>(Editor(), QStringLiteral("ChildName")).text() + QLatin1Char(' ') +
               ColorOfLabel(Editor(), QStringLiteral("ChildPicture")).name();
    };
    OpenEditor();
    EXPECT_EQ(shown(), QStringLiteral("Kim #ff0000"));
    View().SetFocus();
    Settle();
    ClickRow(List(), 1);
    PressButton("Incentivesbtn");
    EXPECT_EQ(shown(), QStringLiteral("Lee #00ff00")) << "asked for again while it stands";
    PressIn("Close");
    PressButton("Incentivesbtn");
    EXPECT_EQ(Find<QLabel>(Editor(), QStringLiteral("ChildName")).text(),
              QStringLiteral("No Sparkit is chosen"));
}

TEST_F(AddIncentivesTest, TheAccountViewTellsThatItIsStoredUntilTheNextAction) {
    OpenEditor();
    EXPECT_EQ(Text("Stored"), QString());
    PressIn("AddIncentive");
    EXPECT_EQ(Text("Stored"), QStringLiteral("Kim's incentive has been stored."));
    ActivateAgain();
    EXPECT_EQ(Text("Stored"), QStringLiteral("Kim's incentive has been stored."));
    ClickRow(List(), 0);
    EXPECT_EQ(Text("Stored"), QString());
}

TEST_F(AddIncentivesTest, WhatIsNotStoredIsNotTold) {
    OpenView();
    PressButton("Incentivesbtn");
    PressIn("AddIncentive");
    EXPECT_EQ(Text("Stored"), QString()) << "nobody's";
    OpenEditor();
    Browse(Path(QStringLiteral("gone.png")));
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    PressIn("AddIncentive");
    EXPECT_EQ(Text("Stored"), QString());
}

} // namespace
