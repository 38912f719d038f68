#include "tests/help/HelpWindowTest.h"

#include "tests/common/ActiveWindow.h"
#include "tests/common/RealInput.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QListWidget>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <sys/stat.h>

QByteArray HelpWindowTest::SmallBook() {
    QByteArray book = "<html><head><style>h1 { color: #0b5f5c; }</style></head><body>"
                      "<h1 id=\"apples\">Apples &amp; more</h1><p>Red apples, ripe pears. "
                      "<a href=\"#cherries\">Cherries</a> <a href=\"#deep\">Deep</a> "
                      "<a href=\"#nowhere\">Nowhere</a></p>"
                      "<h1 id=\"pears\">Pears</h1><p>A pear is no apple.</p>";
    for (int line = 0; line < 80; ++line)
        book += "<p>Leaves.</p>";
    book += "<h2 id=\"deep\">Deep down</h2><p>The last pear.</p>"
            "<h1 id=\"cherries\">Cherries</h1><p>Red and sweet.<img src=\"wide.png\"></p>"
            "</body></html>";
    return book;
}

QByteArray HelpWindowTest::ThreeChapters() {
    QByteArray book;
    for (const char* chapter : {"One", "Two", "Three"}) {
        book += QByteArray("<h1 id=\"") + QByteArray(chapter).toLower() + "\">" + chapter + "</h1>";
        for (int section = 1; section <= 4; ++section)
            book += "<h2 id=\"" + QByteArray(chapter) + QByteArray::number(section) + "\">" +
                    chapter + '.' + QByteArray::number(section) + "</h2>";
    }
    return book;
}

HelpWindowTest::HelpWindowTest() {
    Write(SmallBook());
}

void HelpWindowTest::Write(const QByteArray& book) {
    QFile file(bookFile);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(book);
}

void HelpWindowTest::Open() {
    window.Open(bookFile);
    ASSERT_TRUE(BecomesActive(window));
    Settle();
}

void HelpWindowTest::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
    Settle();
}

void HelpWindowTest::SearchFor(const char* words) {
    Key(Qt::Key_F, Qt::ControlModifier);
    Type(SearchText(), QString::fromLatin1(words));
    Settle();
}

QStringList HelpWindowTest::FoundPages() {
    QStringList pages;
    const auto& list = Find<QListWidget>(window, QStringLiteral("Results"));
    for (int row = 0; row < list.count(); ++row)
        pages += list.item(row)->text();
    return pages;
}

namespace {

TEST_F(HelpWindowTest, OpensAtTheFirstPageWithAllPagesAndSectionsInTheContents) {
    Open();
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("ripe pears")));
    EXPECT_FALSE(Page().toPlainText().contains(QStringLiteral("no apple"))); // another page
    ASSERT_EQ(Contents().topLevelItemCount(), 3);
    EXPECT_EQ(Contents().topLevelItem(0)->text(0), QStringLiteral("Apples & more"));
    EXPECT_EQ(Contents().topLevelItem(0)->toolTip(0), QStringLiteral("Apples & more"));
    ASSERT_EQ(Contents().topLevelItem(1)->childCount(), 1);
    EXPECT_EQ(Contents().topLevelItem(1)->child(0)->text(0), QStringLiteral("Deep down"));
    EXPECT_EQ(Contents().currentItem(), Contents().topLevelItem(0));
    EXPECT_TRUE(Contents().hasFocus());
    EXPECT_FALSE(ShowsResults());
}

TEST_F(HelpWindowTest, KeysInTheContentsGoToPagesAndSections) {
    Open();
    Key(Qt::Key_Down);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(Page().verticalScrollBar()->value(), 0);
    Key(Qt::Key_Down); // the page's own sections come next
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(Contents().currentItem()->text(0), QStringLiteral("Deep down"));
    EXPECT_GT(Page().verticalScrollBar()->value(), 100);
    EXPECT_TRUE(Contents().topLevelItem(1)->isExpanded());
    Key(Qt::Key_Down);
    EXPECT_EQ(Title(), QStringLiteral("Cherries"));
    EXPECT_FALSE(Contents().topLevelItem(1)->isExpanded());
}

TEST_F(HelpWindowTest, AClickInTheContentsGoesBackToTheTopOfThePageShown) {
    Open();
    const auto click = [this](const QTreeWidgetItem& entry) {
        QTest::mouseClick(Contents().viewport(), Qt::LeftButton, {},
                          Contents().visualItemRect(&entry).center());
        Settle();
    };
    click(*Contents().topLevelItem(1));
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    Page().verticalScrollBar()->setValue(300);
    click(*Contents().topLevelItem(1));
    EXPECT_EQ(Page().verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, AClickBelowAnOpenedChapterMarksWhatIsClicked) {
    Write(ThreeChapters());
    Open();
    RealInput hand;
    for (const RealPress& press : {RealInput::Short, RealInput::Long, RealInput::Double}) {
        Page().GoTo(QStringLiteral("one"));
        Settle();
        ASSERT_TRUE(Contents().topLevelItem(0)->isExpanded());
        const QTreeWidgetItem& clicked = *Contents().topLevelItem(1);
        hand.ClickAt(*Contents().viewport(), Contents().visualItemRect(&clicked).center(), press);
        Settle();
        EXPECT_EQ(Title(), QStringLiteral("Two"));
        EXPECT_EQ(Contents().selectedItems(), QList<QTreeWidgetItem*>{Contents().topLevelItem(1)});
        EXPECT_EQ(Contents().currentItem(), Contents().topLevelItem(1));
        EXPECT_FALSE(Contents().topLevelItem(0)->isExpanded());
        EXPECT_TRUE(Contents().topLevelItem(1)->isExpanded());
    }
}

TEST_F(HelpWindowTest, AnArrowOpensAChapterThatIsNotRead) {
    Write(ThreeChapters());
    Open();
    const QRect entry = Contents().visualItemRect(Contents().topLevelItem(2));
    RealInput().ClickAt(*Contents().viewport(), {entry.left() - 7, entry.center().y()},
                        RealInput::Short);
    Settle();
    EXPECT_EQ(Title(), QStringLiteral("One"));
    EXPECT_TRUE(Contents().topLevelItem(2)->isExpanded());
    EXPECT_TRUE(Contents().topLevelItem(0)->isExpanded());
}

TEST_F(HelpWindowTest, ItOpensBesideTheWindowThatAsksOrInTheLowerRightCorner) {
    QWidget program;
    const QRect screen = program.screen()->availableGeometry();
    const QSize small(200, 300);
    program.resize(small);
    program.move(screen.topLeft() + QPoint(10, 10));
    program.show();
    ASSERT_TRUE(BecomesActive(program));
    Settle();
    Open();
    // A frame's own place may be told late.
    const auto isBesideIt = [&] {
        return screen.contains(window.frameGeometry()) &&
               !window.frameGeometry().intersects(program.frameGeometry());
    };
    EXPECT_TRUE(QTest::qWaitFor(isBesideIt, Patience));

    HelpWindow second;
    SizeWindow(program, screen.size() - QSize(40, 80));
    program.activateWindow();
    ASSERT_TRUE(BecomesActive(program));
    Settle();
    second.Open(bookFile);
    ASSERT_TRUE(BecomesActive(second));
    Settle();
    const auto isInTheCorner = [&] {
        const QRect place = second.frameGeometry();
        return screen.contains(place) && screen.right() - place.right() <= 40 &&
               screen.bottom() - place.bottom() <= 80;
    };
    EXPECT_TRUE(QTest::qWaitFor(isInTheCorner, Patience));
    // Where it has been put it comes again.
    const QPoint firstPlace = second.geometry().topLeft();
    second.move(screen.topLeft() + QPoint(30, 40));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return second.geometry().topLeft() != firstPlace; }, Patience));
    Settle();
    const QPoint place = second.geometry().topLeft();
    second.close();
    program.activateWindow();
    second.Open(bookFile);
    ASSERT_TRUE(BecomesActive(second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return second.geometry().topLeft() == place; }, Patience));
}

TEST_F(HelpWindowTest, LinksGoToPagesAndSectionsAndUnknownOnesNowhere) {
    Open();
    emit Page().anchorClicked(QUrl(QStringLiteral("help:apples#nowhere")));
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_FALSE(Button("Back").isEnabled());
    // The keyboard's way: to the first link, and there.
    Page().setFocus();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), QStringLiteral("Cherries"));
    EXPECT_EQ(Contents().currentItem()->text(0), QStringLiteral("Cherries"));
    emit Page().anchorClicked(QUrl(QStringLiteral("help:cherries#deep")));
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(Contents().currentItem()->text(0), QStringLiteral("Deep down"));
    EXPECT_GT(Page().verticalScrollBar()->value(), 100);
}

TEST_F(HelpWindowTest, BackForwardAndFirstPageByButtonsAndKeys) {
    Open();
    EXPECT_FALSE(Button("Back").isEnabled());
    EXPECT_FALSE(Button("Forward").isEnabled());
    Page().GoTo(QStringLiteral("pears"));
    Page().verticalScrollBar()->setValue(200);
    Page().GoTo(QStringLiteral("cherries"));

    Click(Button("Back"));
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    EXPECT_EQ(Page().verticalScrollBar()->value(), 200); // where it was left
    EXPECT_EQ(Contents().currentItem()->text(0), QStringLiteral("Pears"));
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_FALSE(Button("Back").isEnabled());
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));

    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Title(), QStringLiteral("Pears"));
    Click(Button("Forward"));
    EXPECT_EQ(Title(), QStringLiteral("Cherries"));
    EXPECT_FALSE(Button("Forward").isEnabled());
    Key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_TRUE(Button("Back").isEnabled());
    Page().GoTo(QStringLiteral("pears"));
    Click(Button("Home"));
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
}

TEST_F(HelpWindowTest, EscapeClosesAndTheNextTimeItBeginsAfresh) {
    Open();
    Page().GoTo(QStringLiteral("cherries"));
    SearchFor("pear");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    Open();
    EXPECT_EQ(Title(), QStringLiteral("Apples & more"));
    EXPECT_EQ(SearchText().text(), QString());
    EXPECT_FALSE(ShowsResults());
    EXPECT_FALSE(Button("Back").isEnabled());
    EXPECT_EQ(Contents().topLevelItemCount(), 3);
    EXPECT_TRUE(Contents().hasFocus());
    Click(Button("CloseHelp"));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(HelpWindowTest, ABookThatHasChangedIsReadAnew) {
    Open();
    window.close();
    Write("<h1 id=\"apples\">Apples</h1>Green ones.");
    Open();
    EXPECT_EQ(Title(), QStringLiteral("Apples"));
    EXPECT_EQ(Page().toPlainText(), QStringLiteral("Apples\nGreen ones."));
}

TEST_F(HelpWindowTest, AskingForHelpWhileItIsOpenKeepsThePageBeingRead) {
    Open();
    Page().GoTo(QStringLiteral("cherries"));
    window.showMinimized();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isActiveWindow(); }, Patience));
    Settle();
    Open();
    EXPECT_FALSE(window.isMinimized());
    EXPECT_EQ(Title(), QStringLiteral("Cherries"));
}

TEST_F(HelpWindowTest, LettersGrowAndShrinkWithinReasonAndPagesKeepTheSize) {
    Open();
    const qreal first = Page().font().pointSizeF();
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(Page().font().pointSizeF(), first + 1);
    const qreal high = Page().document()->size().height();
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Page().font().pointSizeF(), first);
    EXPECT_LT(Page().document()->size().height(), high);
    Click(Button("Smaller"));
    EXPECT_EQ(Page().font().pointSizeF(), first - 1);
    Click(Button("Larger"));
    Key(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(Page().font().pointSizeF(), first + 1);
    Page().GoTo(QStringLiteral("pears"));
    EXPECT_EQ(Page().font().pointSizeF(), first + 1);
    for (int step = 0; step < 60; ++step)
        Page().ChangeTextSize(-1);
    EXPECT_EQ(Page().font().pointSizeF(), 7);
    for (int step = 0; step < 90; ++step)
        Page().ChangeTextSize(1);
    EXPECT_EQ(Page().font().pointSizeF(), 28);
}

TEST_F(HelpWindowTest, AMissingFileIsSaidInTheWindow) {
    window.Open(Path(QStringLiteral("HelpFile/None & <b>.hlp")));
    Settle();
    EXPECT_EQ(Title(), QStringLiteral("There is no help"));
    const QString text = Page().toPlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("The help file cannot be found.")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("None & <b>.hlp")));
    EXPECT_EQ(Contents().topLevelItemCount(), 1);
    SearchFor("pear");
    EXPECT_EQ(FoundPages(), QStringList());
    SearchFor("safety copy");
    EXPECT_EQ(FoundPages(), QStringList(QStringLiteral("There is no help")));
}

TEST_F(HelpWindowTest, NoPipeIsWaitedForInPlaceOfTheFileOrAPicture) {
    const QString picture = Path(QStringLiteral("HelpFile/pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(picture).constData(), 0600), 0);
    Write("<html><body><h1 id=\"a\">Page</h1><p><img src=\"pipe.png\">text</p></body></html>");
    Open();
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("text")));
    window.close();
    ASSERT_TRUE(QFile::remove(bookFile));
    ASSERT_EQ(::mkfifo(QFile::encodeName(bookFile).constData(), 0600), 0);
    Open();
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("The help file cannot be found.")));
}

TEST_F(HelpWindowTest, EmptyAndDamagedFilesAreSaidInTheWindow) {
    QByteArray noise;
    for (int byte = 0; byte < 200000; ++byte)
        noise += static_cast<char>((byte * 37 + byte / 13) % 256);
    for (const QByteArray& damaged : {QByteArray(), QByteArray("<html><body><h1>"), noise,
                                      QByteArray("plain words"), QByteArray(5000, '\0')}) {
        Write(damaged);
        Open();
        EXPECT_TRUE(
            Page().toPlainText().contains(QStringLiteral("The help file is empty or damaged.")))
            << damaged.left(40).toStdString();
        window.close();
    }
}

TEST_F(HelpWindowTest, OfAFileCutOffWhatIsLeftIsShown) {
    for (const qsizetype length : {150, 400, 1000}) {
        Write(SmallBook().left(length));
        Open();
        EXPECT_EQ(Title(), QStringLiteral("Apples & more")) << length;
        emit Page().anchorClicked(QUrl(QStringLiteral("help:apples#cherries"))); // cut off
        EXPECT_EQ(Title(), QStringLiteral("Apples & more")) << length;
        window.close();
    }
}

TEST_F(HelpWindowTest, APageWithoutAnIdCanStillBeGoneTo) {
    Write("<h1>One</h1>first<h2>part</h2><h1>Two</h1>second");
    Open();
    Key(Qt::Key_Down);
    EXPECT_EQ(Title(), QStringLiteral("Two"));
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("second")));
}

TEST_F(HelpWindowTest, AnIdMayHoldAColon) {
    Write("<h1 id=\"a:1\">One</h1><a href=\"#b:2\">Two</a><h1 id=\"b:2\">Two</h1>second");
    Open();
    EXPECT_EQ(Title(), QStringLiteral("One"));
    Page().setFocus();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), QStringLiteral("Two"));
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("second")));
}

TEST_F(HelpWindowTest, AWiderWindowGivesItsRoomToThePage) {
    Open();
    const int contents = Contents().width();
    const int page = Page().width();
    SizeWindow(window, window.size() - QSize(100, 0));
    EXPECT_EQ(Contents().width(), contents);
    EXPECT_EQ(Page().width(), page - 100);
}

TEST_F(HelpWindowTest, PicturesFitTheWindowAndMissingOnesShowNothing) {
    const auto widthOfBlue = [this] {
        const QImage page = Page().viewport()->grab().toImage();
        int widest = 0;
        for (int y = 0; y < page.height(); ++y) {
            int width = 0;
            for (int x = 0; x < page.width(); ++x)
                width += page.pixelColor(x, y) == QColor(Qt::blue) ? 1 : 0;
            widest = std::max(widest, width);
        }
        return widest;
    };
    const auto show = [this](int width) {
        QImage picture(width, 100, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        ASSERT_TRUE(picture.save(Path(QStringLiteral("HelpFile/wide.png"))));
        window.close();
        Open();
        Page().GoTo(QStringLiteral("cherries"));
        Settle();
    };
    constexpr int Margins = 40;
    Open();
    Page().GoTo(QStringLiteral("cherries")); // its picture is not there
    EXPECT_TRUE(Page().toPlainText().contains(QStringLiteral("sweet")));
    EXPECT_EQ(widthOfBlue(), 0);
    show(60);
    EXPECT_EQ(widthOfBlue(), 60);
    show(2000);
    for (const int width : {900, 640, 800}) {
        SizeWindow(window, QSize(width, 600));
        EXPECT_EQ(widthOfBlue(), Page().viewport()->width() - Margins) << width;
        EXPECT_FALSE(Page().horizontalScrollBar()->isVisible());
    }
}

TEST_F(HelpWindowTest, EveryControlHasANameAndTabFollowsTheEye) {
    Open();
    const QStringList order = {QStringLiteral("Home"),       QStringLiteral("Smaller"),
                               QStringLiteral("Larger"),     QStringLiteral("CloseHelp"),
                               QStringLiteral("SearchText"), QStringLiteral("Contents"),
                               QStringLiteral("Page")};
    Button("Home").setFocus();
    QStringList visited;
    for (qsizetype stop = 0; stop < order.size(); ++stop) {
        const QWidget* control = QApplication::focusWidget();
        ASSERT_NE(control, nullptr);
        visited += control->objectName();
        QAccessibleInterface* reader =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
        EXPECT_FALSE(reader->text(QAccessible::Name).isEmpty()) << visited.last().toStdString();
        Key(Qt::Key_Tab);
    }
    EXPECT_EQ(visited, order);
    const QAccessibleInterface* search = QAccessible::queryAccessibleInterface(&SearchText());
    EXPECT_EQ(search->text(QAccessible::Name), QStringLiteral("Search for:"));
}

/// A form that counts how often it comes to the front.
class CountingForm : public FormWidget {
public:
    CountingForm() : FormWidget(Place::TopLevel) { resize(200, 100); }
    int Activations = 0;

protected:
    void Activate() override { ++Activations; }
};

TEST_F(HelpWindowTest, GoingToTheHelpAndBackIsNoReturnToAForm) {
    auto* form = new CountingForm;
    // Else it would stay in the way of all tests to come.
    const auto unload = qScopeGuard([form] { form->Unload(); });
    form->Show();
    ASSERT_TRUE(BecomesActive(*form));
    Settle();
    EXPECT_EQ(form->Activations, 1);
    Open();
    Page().GoTo(QStringLiteral("pears"));
    Settle();
    form->raise();
    form->activateWindow();
    ASSERT_TRUE(BecomesActive(*form)); // it stays usable beside the help
    Settle();
    EXPECT_EQ(form->Activations, 1);
    EXPECT_TRUE(window.isVisible());
    Open();
    Key(Qt::Key_Escape);
    ASSERT_FALSE(window.isVisible());
    ASSERT_TRUE(BecomesActive(*form));
    Settle();
    EXPECT_EQ(form->Activations, 1);
}

} // namespace
