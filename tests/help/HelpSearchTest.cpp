#include "tests/help/HelpWindowTest.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollBar>

namespace {

/// The search of the help window.
class HelpSearchTest : public HelpWindowTest {
protected:
    QString FoundText() { return Find<QLabel>(window, QStringLiteral("Found")).text(); }

    /// The text from the current place on: where the last hit gone to begins.
    QString TextAtHit(int length) {
        return Page().toPlainText().mid(Page().textCursor().position(), length);
    }
};

TEST_F(HelpSearchTest, ASearchListsThePagesThatHoldAllWordsInAnyCase) {
    Open();
    SearchFor("PEAR");
    EXPECT_EQ(FoundPages(),
              QStringList({QStringLiteral("Apples & more"), QStringLiteral("Pears")}));
    EXPECT_EQ(FoundText(), QStringLiteral("2 pages found"));
    SearchFor("  sweet, red! ");
    EXPECT_EQ(FoundPages(), QStringList({QStringLiteral("Cherries")}));
    EXPECT_EQ(FoundText(), QStringLiteral("1 page found"));
    SearchFor("sweet pear");
    EXPECT_EQ(FoundPages(), QStringList());
    EXPECT_EQ(FoundText(), QStringLiteral("No page has all these words."));
    EXPECT_FALSE(Button("NextHit").isEnabled());
    Key(Qt::Key_F3);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    SearchFor("style"); // not what is written for the computer
    EXPECT_EQ(FoundPages(), QStringList());
}

TEST_F(HelpSearchTest, BlanksAndMarksAloneAreNoSearch) {
    Open();
    SearchFor("pear");
    EXPECT_TRUE(ShowsResults());
    SearchFor("  ");
    EXPECT_FALSE(ShowsResults());
    SearchFor("\"?");
    EXPECT_FALSE(ShowsResults());
    EXPECT_TRUE(Page().extraSelections().isEmpty());
}

TEST_F(HelpSearchTest, EnterAndF3GoFromHitToHitThroughAllPagesFoundAndRound) {
    Open();
    SearchFor("pear");
    EXPECT_EQ(Page().extraSelections().size(), 1); // marked before it is gone to
    EXPECT_EQ(Page().Hit(), -1);
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pears"));
    Key(Qt::Key_F3);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(Page().extraSelections().size(), 3);
    EXPECT_EQ(TextAtHit(5), QStringLiteral("Pears")); // the heading
    Key(Qt::Key_F3);
    EXPECT_EQ(TextAtHit(7), QStringLiteral("pear is"));
    Click(Button("NextHit"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pear."));
    EXPECT_GT(Page().verticalScrollBar()->value(), 100);
    Key(Qt::Key_F3);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pears"));
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pear."));
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(TextAtHit(7), QStringLiteral("pear is"));
}

TEST_F(HelpSearchTest, PagesFoundAreGoneThroughInTheirOrderBothWays) {
    Write("<html><body><h1 id=\"a\">One</h1><p>fig</p><h1 id=\"b\">Two</h1><p>fig</p>"
          "<h1 id=\"c\">Three</h1><p>fig</p></body></html>");
    Open();
    SearchFor("fig");
    QStringList titles;
    for (int step = 0; step < 4; ++step) {
        Key(Qt::Key_F3);
        titles += Title();
    }
    for (int step = 0; step < 3; ++step) {
        Key(Qt::Key_F3, Qt::ShiftModifier);
        titles += Title();
    }
    EXPECT_EQ(titles.join(QLatin1Char(' ')), QStringLiteral("One Two Three One Three Two One"));
}

TEST_F(HelpSearchTest, HitsAreInTheOrderOfThePageWhateverThatOfTheWords) {
    Open();
    SearchFor("sweet red");
    Key(Qt::Key_F3);
    EXPECT_EQ(TextAtHit(3), QStringLiteral("Red"));
    Key(Qt::Key_F3);
    EXPECT_EQ(TextAtHit(5), QStringLiteral("sweet"));
}

TEST_F(HelpSearchTest, F3FromAPageWithoutTheWordsGoesToTheFirstThatHasThem) {
    Open();
    SearchFor("sweet");
    Key(Qt::Key_F3);
    EXPECT_EQ(Title(), QStringLiteral("Cherries"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("sweet"));
    Key(Qt::Key_F3); // the only hit there is
    EXPECT_EQ(TextAtHit(5), QStringLiteral("sweet"));
    SearchFor("pear");
    Key(Qt::Key_F3);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pears"));
}

TEST_F(HelpSearchTest, ShiftF3FromAPageWithoutTheWordsGoesToTheLastHitOfTheLastThatHasThem) {
    Open();
    Page().GoTo(QStringLiteral("cherries"));
    SearchFor("pear");
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("pear."));
}

TEST_F(HelpSearchTest, AHitStandsInTheUpperThirdOfThePage) {
    const QByteArray leaves = QByteArray("<p>Leaves.</p>").repeated(60);
    Write("<h1 id=\"one\">One</h1>" + leaves + "<p>A plum.</p>" + leaves);
    Open();
    SearchFor("plum");
    Key(Qt::Key_F3);
    EXPECT_NEAR(Page().cursorRect().top(), Page().viewport()->height() / 3, 1);
    Key(Qt::Key_F3);
    EXPECT_NEAR(Page().cursorRect().top(), Page().viewport()->height() / 3, 1);
}

TEST_F(HelpSearchTest, APageFoundOpensAtItsFirstHit) {
    Open();
    SearchFor("last pear");
    ClickRow(Find(window, QStringLiteral("Results")), 0);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(TextAtHit(5), QStringLiteral("Pears"));
    EXPECT_TRUE(ShowsResults()); // the list stays
    LookAt(window, QStringLiteral("help-search"));
}

TEST_F(HelpSearchTest, ThePageShownIsMarkedAmongThoseFound) {
    Open();
    Page().GoTo(QStringLiteral("pears"));
    SearchFor("pear");
    const auto& results = Find<QListWidget>(window, QStringLiteral("Results"));
    EXPECT_EQ(results.currentRow(), 1);
    Page().GoTo(QStringLiteral("apples"));
    EXPECT_EQ(results.currentRow(), 0);
    Page().GoTo(QStringLiteral("cherries"));
    EXPECT_EQ(results.currentRow(), -1);
}

TEST_F(HelpSearchTest, CtrlFGoesToTheSearchAndTakesItsTextForTheNextOne) {
    Open();
    SearchFor("pear");
    Page().setFocus();
    Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(SearchText().hasFocus());
    EXPECT_EQ(SearchText().selectedText(), QStringLiteral("pear"));
    SearchText().end(false);
    Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(SearchText().selectedText(), QStringLiteral("pear")) << "also from within";
}

} // namespace
