#include "platform/runtime/TextFiles.h"

#include "tests/common/RuntimeTest.h"

#include <limits>

namespace {

class TextFilesTest : public RuntimeTest {
protected:
    static QString File() { return Path(QStringLiteral("lines.txt")); }

    /// All items of a file with this content, as texts.
    static QStringList Items(const QByteArray& content) {
        WriteFile(File(), content);
        InputFile input(File());
        QStringList items;
        while (!input.AtEnd())
            items += input.InputText();
        return items;
    }

    static QStringList Texts(std::initializer_list<const char*> texts) {
        QStringList list;
        for (const char* text : texts)
            list += QString::fromUtf8(text);
        return list;
    }

    /// The first item of a file with this content, as a number.
    static double Number(const QByteArray& content) {
        WriteFile(File(), content);
        return InputFile(File()).InputNumber();
    }
};

TEST_F(TextFilesTest, ItemsEndAtTheLinesEndOfAnyKind) {
    EXPECT_EQ(Items("one\r\ntwo\nthree\rfour"), Texts({"one", "two", "three", "four"}));
}

TEST_F(TextFilesTest, EmptyLinesAreEmptyItems) {
    EXPECT_EQ(Items("one\r\n\r\ntwo\r\n"), Texts({"one", "", "two"}));
    EXPECT_EQ(Items("\n\n"), Texts({"", ""}));
}

TEST_F(TextFilesTest, UnquotedItemIsCutAtAComma) {
    EXPECT_EQ(Items("C:/my,picture.png\r\n5\r\n"), Texts({"C:/my", "picture.png", "5"}));
    EXPECT_EQ(Items(",x"), Texts({"", "x"}));
}

TEST_F(TextFilesTest, QuotedItemKeepsCommasAndRunsToTheNextQuote) {
    EXPECT_EQ(Items("\"Wash, dry\" , \"two\nlines\"\r\nlast"),
              Texts({"Wash, dry", "two\nlines", "last"}));
    EXPECT_EQ(Items("\"a\"b\r\nc"), Texts({"a", "b", "c"}));
    EXPECT_EQ(Items("\"never closed\r\nrest"), Texts({"never closed\r\nrest"}));
    EXPECT_EQ(Items("say \"hi\"\r\n"), Texts({"say \"hi\""}));
}

TEST_F(TextFilesTest, BlanksBeforeAnItemAreSkippedThoseBehindATextAreKept) {
    EXPECT_EQ(Items("  \tone  two \r\n"), Texts({"one  two "}));
}

TEST_F(TextFilesTest, ByteOrderMarkIsNoPartOfTheFirstItem) {
    EXPECT_EQ(Items("\xEF\xBB\xBF"
                    "1\r\n"),
              Texts({"1"}));
}

TEST_F(TextFilesTest, TextOfAnyAlphabetIsRead) {
    EXPECT_EQ(Items("Zoë 🎈\r\n"), Texts({"Zoë 🎈"}));
}

TEST_F(TextFilesTest, BlanksAroundANumberAreSkipped) {
    EXPECT_EQ(Number(" 1 \r\n"), 1);
    EXPECT_EQ(Number("-16777216 \r\n"), -16777216);
    EXPECT_EQ(Number("  2.5  ,7"), 2.5);
    EXPECT_EQ(Number("\"3\"\r\n"), 3);
}

TEST_F(TextFilesTest, ItemThatIsNoNumberIsATypeMismatch) {
    for (const char* text : {"abc\r\n", "\r\n", "1x", "nan", "inf", "1 2"})
        EXPECT_ERROR(13, Number(text));
}

TEST_F(TextFilesTest, ReadingPastTheEndRaises62) {
    EXPECT_ERROR(62, Number(""));
    WriteFile(File(), "1\r\n2\r\n");
    InputFile input(File());
    EXPECT_EQ(input.InputNumber(), 1);
    EXPECT_EQ(input.InputNumber(), 2);
    EXPECT_TRUE(input.AtEnd());
    EXPECT_ERROR(62, input.InputNumber());
    EXPECT_ERROR(62, input.InputText());
}

TEST_F(TextFilesTest, FilesThatCannotBeReadRaiseTheirNumbers) {
    EXPECT_ERROR(53, InputFile(Path(QStringLiteral("missing.txt"))));
    EXPECT_ERROR(76, InputFile(Path(QStringLiteral("missing/lines.txt"))));
    EXPECT_ERROR(75, InputFile{ProgramFolder()});
    QDir().mkpath(Path(QStringLiteral("folder")));
    EXPECT_ERROR(75, InputFile(Path(QStringLiteral("folder"))));
}

TEST_F(TextFilesTest, NumbersAreWrittenWithABlankForThePlusAndOneBehind) {
    OutputFile output(File());
    output.PrintNumber(1);
    output.PrintNumber(0);
    output.PrintNumber(-5);
    output.PrintNumber(std::numeric_limits<qint32>::max());
    output.Close();
    EXPECT_EQ(ReadFile(File()), QByteArray(" 1 \r\n 0 \r\n-5 \r\n 2147483647 \r\n"));
}

TEST_F(TextFilesTest, TextsAreWrittenAsTheyStand) {
    OutputFile output(File());
    output.PrintText(QStringLiteral("C:/my,\"picture\".png "));
    output.PrintText(QString());
    output.PrintText(QString::fromUtf8("Zoë 🎈"));
    output.Close();
    EXPECT_EQ(ReadFile(File()), QByteArray("C:/my,\"picture\".png \r\n\r\nZoë 🎈\r\n"));
}

TEST_F(TextFilesTest, OldFileStaysUntilTheNewOneIsClosed) {
    WriteFile(File(), "old");
    {
        OutputFile abandoned(File());
        abandoned.PrintText(QStringLiteral("new"));
    }
    EXPECT_EQ(ReadFile(File()), QByteArray("old"));
    OutputFile output(File());
    output.PrintText(QStringLiteral("new"));
    EXPECT_EQ(ReadFile(File()), QByteArray("old"));
    output.Close();
    EXPECT_EQ(ReadFile(File()), QByteArray("new\r\n"));
    EXPECT_EQ(QDir(ProgramFolder()).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("lines.txt")));
}

TEST_F(TextFilesTest, RewrittenFileKeepsItsRights) {
    WriteFile(File(), "old");
    const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
    ASSERT_TRUE(QFile::setPermissions(File(), rights));
    OutputFile output(File());
    output.PrintText(QStringLiteral("new"));
    output.Close();
    EXPECT_EQ(ReadFile(File()), QByteArray("new\r\n"));
    EXPECT_EQ(QFile::permissions(File()) & ~(QFile::ReadUser | QFile::WriteUser), rights);
}

TEST_F(TextFilesTest, NothingIsWrittenThroughALink) {
    const QString target = Path(QStringLiteral("elsewhere/.bashrc"));
    WriteFile(target, "old");
    OutputFile output(File());
    ASSERT_TRUE(QFile::link(target, File()));
    EXPECT_ERROR(75, output.Close());
    EXPECT_ERROR(75, OutputFile{File()});
    EXPECT_EQ(ReadFile(target), QByteArray("old"));
    EXPECT_EQ(QFileInfo(File()).symLinkTarget(), target);
}

TEST_F(TextFilesTest, FilesThatCannotBeWrittenRaiseTheirNumbers) {
    EXPECT_ERROR(76, OutputFile(Path(QStringLiteral("missing/lines.txt"))));
    QDir().mkpath(Path(QStringLiteral("folder")));
    EXPECT_ERROR(75, OutputFile(Path(QStringLiteral("folder"))));
    // A file of the kernel's, which nobody can put another in the place of.
    EXPECT_ERROR(75, OutputFile(QStringLiteral("/proc/version")).Close());
}

} // namespace
