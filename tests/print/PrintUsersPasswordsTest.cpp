#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"

#include "platform/printing/Printer.h"

#include <QFontMetricsF>
#include <QPdfWriter>

namespace {

constexpr double Near = 0.07;

class PrintUsersPasswordsTest : public ProgramTest {
protected:
    static void MakeAccounts(int count) {
        for (int number = 1; number <= count; ++number)
            Database().AddUser(QStringLiteral("kid%1").arg(number),
                               QStringLiteral("pw%1").arg(number), QStringLiteral("Student"),
                               QString());
    }

    static QString LineOf(int number) {
        return QStringLiteral("User Name Is: kid%1 Password Is: pw%1").arg(number);
    }

    PrintedPages Print() {
        Database().PrintUsersPasswords();
        return PrintedPages(Paper.LastFile());
    }
};

TEST_F(PrintUsersPasswordsTest, NoAccountsPrintTheTitleAlone) {
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.LineAt(1, 1), QStringLiteral("List of Sparkit Dutygrid users and passwords"));
    EXPECT_EQ(pages.Words(1).size(), 7);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("List")).Place.left(), 4, Near);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("List")).Place.top(), 1, Near);
    EXPECT_EQ(Paper.Files().size(), 1);
}

TEST_F(PrintUsersPasswordsTest, TheGridIsItsOwnWhateverIsSetBefore) {
    Printer().SetScaleWidth(42);
    Printer().SetScaleHeight(60);
    const QRectF first = Print().Find(1, QStringLiteral("List")).Place;
    EXPECT_NEAR(first.left(), 4, Near);
    EXPECT_NEAR(first.top(), 1, Near);
}

TEST_F(PrintUsersPasswordsTest, AdultsAndChildrenAreListedInTheTablesOrder) {
    Database().AddUser(QStringLiteral("Zoe"), QStringLiteral("secret"), QStringLiteral("Student"),
                       QString());
    Database().AddUser(QStringLiteral("Mr Adams"), QStringLiteral("007"), QStringLiteral("Teacher"),
                       QString());
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.LineAt(1, 2), QStringLiteral("User Name Is: Zoe Password Is: secret"));
    EXPECT_EQ(pages.LineAt(1, 3), QStringLiteral("User Name Is: Mr Adams Password Is: 007"));
    EXPECT_NEAR(pages.Find(1, QStringLiteral("User")).Place.left(), 2, Near);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("User")).Place.top(), 2, Near);
}

TEST_F(PrintUsersPasswordsTest, LongNamesAndPasswordsAreMadeToFit) {
    const QString name = QStringLiteral("Maximiliana Bartholomea van der Woodhouse-Smythe");
    Database().AddUser(name, QStringLiteral("correct horse battery staple"),
                       QStringLiteral("Student"), QString());
    const PrintedPages pages = Print();
    QStringList words;
    for (const PrintedPages::Word& word : pages.Words(1))
        words += word.Text;
    EXPECT_TRUE(
        words.join(QLatin1Char(' '))
            .endsWith(QStringLiteral("User Name Is: %1 Password Is: correct horse battery staple")
                          .arg(name)));
    EXPECT_LE(pages.Find(1, QStringLiteral("staple")).Place.right(), 21);
}

TEST_F(PrintUsersPasswordsTest, TheSheetIsCalledByWhatItShows) {
    Database().PrintUsersPasswords();
    EXPECT_EQ(Paper.Names(), QStringList(QStringLiteral("List of users - 2001-03-07")));
}

TEST_F(PrintUsersPasswordsTest, FiveBlanksPartNameAndPassword) {
    MakeAccounts(1);
    const PrintedPages pages = Print();
    QPdfWriter device(Path(QStringLiteral("metrics.pdf")));
    const double before = QFontMetricsF(PaperFont(18), &device)
                              .horizontalAdvance(QStringLiteral("User Name Is: kid1     ")) *
                          21 / device.width();
    EXPECT_NEAR(pages.Find(1, QStringLiteral("Password")).Place.left(), 2 + before, Near);
}

TEST_F(PrintUsersPasswordsTest, EverythingIsBlackAndOf18Points) {
    MakeAccounts(40);
    const PrintedPages pages = Print();
    const double title = pages.Find(1, QStringLiteral("List")).Place.height();
    EXPECT_NEAR(title * pages.UnitPoints().height(), 18 * 1.117, 0.1);
    EXPECT_NEAR(pages.Find(1, QStringLiteral("kid28")).Place.height(), title, 0.01);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("kid40")).Place.height(), title, 0.01);
    for (const int page : {1, 2})
        EXPECT_EQ(pages.MainColor(page, QRectF(0, 0, 21, 30)), QColor(0, 0, 0));
}

TEST_F(PrintUsersPasswordsTest, FirstPageHolds28AccountsAndTheLastStandsAt29) {
    MakeAccounts(28);
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 1) << "no empty page follows";
    EXPECT_EQ(pages.LineAt(1, 2), LineOf(1));
    EXPECT_EQ(pages.LineAt(1, 29), LineOf(28));
}

TEST_F(PrintUsersPasswordsTest, LaterPagesHaveNoTitleStartAtTheTopAndHold29) {
    MakeAccounts(28 + 29 + 1);
    const PrintedPages pages = Print();
    ASSERT_EQ(pages.Count(), 3);
    EXPECT_EQ(pages.LineAt(1, 29), LineOf(28));
    EXPECT_TRUE(pages.FindAll(2, QStringLiteral("List")).isEmpty());
    EXPECT_EQ(pages.FindAll(2, QStringLiteral("User")).size(), 29);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("User")).Place.left(), 2, Near);
    EXPECT_NEAR(pages.Find(2, QStringLiteral("User")).Place.top(), 1, Near);
    EXPECT_EQ(pages.LineAt(2, 1), LineOf(29));
    EXPECT_EQ(pages.LineAt(2, 29), LineOf(57));
    EXPECT_EQ(pages.LineAt(3, 1), LineOf(58));
    EXPECT_EQ(pages.FindAll(3, QStringLiteral("User")).size(), 1);
}

TEST_F(PrintUsersPasswordsTest, DeviceThatRefusesRaises482AndTheNextListIsWhole) {
    MakeAccounts(2);
    PdfPrintTarget nowhere(Path(QStringLiteral("no-such-folder")));
    SetPrintTarget(&nowhere);
    EXPECT_ERROR(482, Database().PrintUsersPasswords());
    SetPrintTarget(&Paper);
    const PrintedPages pages = Print();
    EXPECT_EQ(pages.Count(), 1);
    EXPECT_EQ(pages.FindAll(1, QStringLiteral("List")).size(), 1);
}

TEST_F(PrintUsersPasswordsTest, DatabaseWithoutTheAccountsTableRaises3078AndSendsNothing) {
    {
        const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
        tables->DeleteTable(QStringLiteral("USERS"));
        tables->Commit();
    }
    EXPECT_ERROR(3078, Database().PrintUsersPasswords());
    EXPECT_TRUE(Paper.Files().isEmpty());
}

} // namespace
