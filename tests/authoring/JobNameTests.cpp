#include "authoring/InstructionsDropDown.h"
#include "tests/authoring/AuthoringTest.h"

/// An editable combo box of its own, without a window around it.
class JobNameLists : public AuthoringTest {
protected:
    void SetUp() override { list.setEditable(true); }

    QComboBox list;
    InstructionsDropDown names;
};

TEST_F(JobNameLists, FileBecomesTheListInItsOrder) {
    WriteJobs("Feed the dog\r\nWater plants\r\nSweep\r\n");
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), (QStringList{u"Feed the dog"_s, u"Water plants"_s, u"Sweep"_s}));
    EXPECT_EQ(list.currentText(), QString());
    EXPECT_EQ(list.currentIndex(), -1);
}

TEST_F(JobNameLists, ReceivingReplacesTheListAndKeepsTheText) {
    WriteJobs("a\r\n");
    list.addItems({u"x"_s, u"y"_s});
    list.setEditText(u"typed"_s);
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), QStringList{u"a"_s});
    EXPECT_EQ(list.currentText(), u"typed"_s);
}

TEST_F(JobNameLists, EmptyFileGivesAnEmptyListAndKeepsTheText) {
    WriteJobs("");
    list.addItem(u"x"_s);
    list.setEditText(u"typed"_s);
    names.ReceveInstructions(list);
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.currentText(), u"typed"_s);
}

TEST_F(JobNameLists, ListIsWrittenOneNameALine) {
    WriteJobs("old and longer than what comes\r\n");
    list.addItems({u"a"_s, u"b \"c\""_s, u"Füße"_s});
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), QByteArray("a\r\nb \"c\"\r\nF\xc3\xbc\xc3\x9f"
                                     "e\r\n"));
}

TEST_F(JobNameLists, WhatCannotBeWrittenWholeLeavesTheFormerList) {
    WriteJobs("a\r\n");
    // A new file is written beside it under a longer name first, which no file system takes.
    const QString file = Path(u"Jobs/HomeJobs.dat"_s);
    const QString longest = Path(u"Jobs/"_s + QString(255, u'j'));
    ASSERT_TRUE(QFile::rename(file, longest));
    ASSERT_TRUE(QFile::link(longest, file));
    list.addItem(u"b"_s);
    EXPECT_ERROR(75, names.AddInstructions(list));
    EXPECT_EQ(ReadJobs(), "a\r\n");
}

TEST_F(JobNameLists, OfEqualNeighboursOneIsWritten) {
    list.addItems({u"A"_s, u"A"_s, u"B"_s, u"A"_s});
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), "A\r\nB\r\nA\r\n");
}

TEST_F(JobNameLists, NeighboursThatDifferInCaseOrBlanksAreBothWritten) {
    list.addItems({u"A"_s, u"a"_s, u"a "_s});
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), "A\r\na\r\na \r\n");
}

TEST_F(JobNameLists, EmptyNamesAreNotWrittenAndPartNoDoubles) {
    list.addItems({QString(), u"A"_s, QString(), u"A"_s, QString()});
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), "A\r\n");
}

TEST_F(JobNameLists, NameWithACommaComesBackAsTwoEntries) {
    list.addItem(u"Feed the dog, cat"_s);
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), "Feed the dog, cat\r\n");
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), (QStringList{u"Feed the dog"_s, u"cat"_s}));
}

TEST_F(JobNameLists, NameThatBeginsWithAQuoteIsReadUpToTheNext) {
    WriteJobs("\"Big, big\" clean\r\n\"Tidy\"\r\n");
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), (QStringList{u"Big, big"_s, u"clean"_s, u"Tidy"_s}));
}

TEST_F(JobNameLists, SchoolModeTouchesOnlyTheSchoolFile) {
    WriteJobs("home\r\n");
    WriteJobs("school\r\n", u"SchoolJobs.dat"_s);
    SchoolMode = -1;
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), QStringList{u"school"_s});
    list.addItem(u"more"_s);
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(u"SchoolJobs.dat"_s), "school\r\nmore\r\n");
    EXPECT_EQ(ReadJobs(), "home\r\n");
}

TEST_F(JobNameLists, FileIsChosenAtEachCall) {
    WriteJobs("home\r\n");
    WriteJobs("school\r\n", u"SchoolJobs.dat"_s);
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), QStringList{u"home"_s});
    SchoolMode = 1;
    names.ReceveInstructions(list);
    EXPECT_EQ(Entries(list), QStringList{u"school"_s}) << "any mode but 0 is school";
}

TEST_F(JobNameLists, MissingFileRaisesFileNotFoundAndKeepsTheText) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    list.setEditText(u"typed"_s);
    EXPECT_ERROR(53, names.ReceveInstructions(list));
    EXPECT_EQ(list.currentText(), u"typed"_s);
}

TEST_F(JobNameLists, MissingFileIsMadeByAWriteButAMissingFolderIsNot) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    list.addItem(u"a"_s);
    names.AddInstructions(list);
    EXPECT_EQ(ReadJobs(), "a\r\n");

    QDir(Path(u"Jobs"_s)).removeRecursively();
    EXPECT_ERROR(76, names.AddInstructions(list));
    EXPECT_FALSE(QDir(Path(u"Jobs"_s)).exists());
}

TEST_F(JobNameLists, DeliveredListsAreNotEmpty) {
    names.ReceveInstructions(list);
    EXPECT_GT(list.count(), 5);
    SchoolMode = -1;
    names.ReceveInstructions(list);
    EXPECT_GT(list.count(), 5);
}
