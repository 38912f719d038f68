#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "store/JobNameFile.h"
#include "support/clsRegistry.h"
#include "tests/common/SmallDisk.h"
#include "tests/shell/ShellTest.h"

#include <QFileInfo>
#include <QProcess>
#include <QRadioButton>
#include <QTest>

namespace {

/// The program on a disk that is full, but for some pages, whenever it writes one of its small
/// files. Whatever becomes of the write: the program starts afterwards, and the home version while
/// the disk is still full, too.
class FullDiskStartTest : public ShellTest, public testing::WithParamInterface<bool> {
protected:
    FullDiskStartTest() {
        MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
        MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
        PutSettings(IsSchool(), 0x80ff);
        ResetSession();
        if (!disk_.IsMounted())
            return;
        EXPECT_EQ(
            QProcess::execute(QStringLiteral("cp"),
                              {QStringLiteral("-a"), Path(QStringLiteral(".")), disk_.Folder()}),
            0);
        SetProgramFolder(disk_.Folder());
        qputenv("XDG_CONFIG_HOME",
                QFile::encodeName(disk_.Folder() + QStringLiteral("/UserConfig")));
        SetPrompts(&boxes_);
    }
    ~FullDiskStartTest() override {
        DropDefaultForms();
        ResetSession();
        SetPrompts(&Boxes);
    }

    void SetUp() override { disk_.Need(); }

    static bool IsSchool() { return GetParam(); }

    /// Starts the program, fills the disk, does something that writes, and starts the program
    /// again.
    template <class Prepare, class Write>
    void WriteAndStart(int pages, Prepare&& prepare, Write&& write) {
        SCOPED_TRACE(testing::Message() << pages << " pages left");
        Start();
        prepare();
        EXPECT_EQ(boxes_.Shown, QStringList());
        ASSERT_TRUE(disk_.Fill(pages));
        write();
        refused_ += !boxes_.Errors().isEmpty();
        for (const QString& box : boxes_.Errors())
            EXPECT_TRUE(box.contains(QLatin1String("full"))) << box.toStdString();
        Start();
        // The school's version writes its settings at each start, which ends where they cannot be
        // written.
        if (!Ends.isEmpty()) {
            EXPECT_EQ(SchoolFlag, 1);
            EXPECT_EQ(Ends, QList<int>{1});
            ASSERT_EQ(boxes_.Shown.size(), 1);
            EXPECT_TRUE(boxes_.Shown.constFirst().contains(QLatin1String("It may be full")));
            Ends.clear();
        } else {
            EXPECT_EQ(boxes_.Shown, QStringList());
            EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim")));
        }
        disk_.Empty();
        Start();
        EXPECT_EQ(boxes_.Shown, QStringList());
        EXPECT_TRUE(Ends.isEmpty());
        EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim")));
        EXPECT_EQ(SettingsLines().size(), 5);
    }

    /// To the log-in form, with all that the forms keep in memory gone.
    void Start() {
        DropDefaultForms();
        ResetSession();
        boxes_.Shown.clear();
        auto& logIn = Default<LogIn>();
        logIn.Show();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return logIn.isActiveWindow() || !Ends.isEmpty(); }, Patience));
        Settle();
    }

    static void LogInMum() { LogInAs(Teachers(), 0, QStringLiteral("m")); }

    SmallDisk disk_{"48m"};
    RecordingPrompts boxes_;
    int refused_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Versions, FullDiskStartTest, testing::Bool(), [](const auto& version) {
    return std::string(version.param ? "School" : "Home");
});

} // namespace

TEST_P(FullDiskStartTest, ItStartsAfterAWriteOfTheSettings) {
    for (int pages = 0; pages < 4; ++pages)
        WriteAndStart(pages, LogInMum, [] {
            Choose(QLatin1String("SoundOnOff"));
            Choose(QLatin1String("SoundOnOff"));
        });
    EXPECT_GE(refused_, 1) << "the disk was never full";
    EXPECT_LT(refused_, 4) << "there was never room";
}

TEST_P(FullDiskStartTest, ItStartsAfterAChangeOfTheVersion) {
    for (int pages = 0; pages < 4; ++pages)
        WriteAndStart(
            pages, [] {},
            [] {
                const QString home = QStringLiteral("ForHome");
                const QString school = QStringLiteral("ForSchool");
                for (const QString& version :
                     {IsSchool() ? home : school, IsSchool() ? school : home})
                    Click(Find<QRadioButton>(Default<LogIn>(), version));
            });
    EXPECT_GE(refused_, 1) << "the disk was never full";
    EXPECT_LT(refused_, 4) << "there was never room";
}

TEST_P(FullDiskStartTest, ItStartsAfterAWriteOfTheJobNames) {
    for (int pages = 0; pages < 4; ++pages) {
        const QString file = JobNameFile(IsSchool());
        ChartEditor* editor = nullptr;
        WriteAndStart(
            pages,
            [&] {
                LogInMum();
                editor = &OpenEditor(QStringLiteral("Chores"));
            },
            [&] {
                Type(editor->Instructions[0], QStringLiteral("A job of our own"));
                Press(editor->Instructions[0], Qt::Key_Return);
                Settle();
            });
        EXPECT_GT(QFileInfo(file).size(), 100) << "all other names are there";
    }
    EXPECT_GE(refused_, 1) << "the disk was never full";
    EXPECT_LT(refused_, 4) << "there was never room";
}

TEST_P(FullDiskStartTest, ItStartsAfterAWriteOfTheRegistry) {
    for (int pages = 0; pages < 4; ++pages)
        WriteAndStart(
            pages, [] {},
            [] {
                const clsRegistry registry;
                const QString key = QStringLiteral("Dutygrid");
                WithErrorsSkipped([&] {
                    registry.SetValue(HKEY_CURRENT_USER, key, QStringLiteral("RunningTimes2"), 2);
                });
            });
}
