#include "session/Settings.h"

#include "platform/runtime/Pictures.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/shell/ShellTest.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <sys/stat.h>

namespace {

class SettingsTest : public ShellTest {
protected:
    static bool Selected(const QString& option) {
        return Find<QRadioButton>(Default<LogIn>(), option).isChecked();
    }

    /// A settings file with that background picture.
    static void PutPicture(const QString& path) {
        PutSettings({QStringLiteral("0"), path, QStringLiteral("123"), QStringLiteral("0"),
                     QStringLiteral("0")});
    }
    /// Saves a picture of one colour in a file that then seems to be as old as all others.
    static void Paint(const QString& path, const QSize& size) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(path));
        SetTime(path, 0);
    }
    static void SetTime(const QString& path, int seconds) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2001, 3, 4), QTime(12, 0, seconds)),
                                     QFileDevice::FileModificationTime));
    }

    static constexpr qint32 Color = 255 + 256 * 128;
};

TEST_F(SettingsTest, FileHasFiveLinesWithBlanksAroundNumbersAndCrLf) {
    SeeOtherAccounts = 1;
    BackgroundPicture = QStringLiteral("/home/kim/My pictures/sea.png");
    SchoolFlag = 0;
    SoundOn = 1;
    MainWindow().SetBackColor(16711680);
    WriteSettings();
    EXPECT_EQ(SettingsBytes(),
              " 1 \r\n/home/kim/My pictures/sea.png\r\n 16711680 \r\n 0 \r\n 1 \r\n");
}

TEST_F(SettingsTest, NoPictureIsAnEmptyLine) {
    MainWindow().SetBackColor(0);
    WriteSettings();
    EXPECT_EQ(SettingsBytes(), " 0 \r\n\r\n 0 \r\n 0 \r\n 0 \r\n");
}

TEST_F(SettingsTest, ThirdLineIsTheWindowsColorNotTheVariable) {
    BackgroundColor = 17;
    MainWindow().SetBackColor(Color);
    WriteSettings();
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(Color));
}

TEST_F(SettingsTest, WrittenFileIsReadBack) {
    const QString picture = PictureFile(QStringLiteral("sea picture.png"));
    SeeOtherAccounts = 1;
    BackgroundPicture = picture;
    SoundOn = 1;
    MainWindow().SetBackColor(Color);
    WriteSettings();

    SeeOtherAccounts = 0;
    BackgroundPicture.clear();
    SoundOn = 0;
    MainWindow().SetBackColor(1);
    ReadSettings();
    EXPECT_EQ(SeeOtherAccounts, 1);
    EXPECT_EQ(BackgroundPicture, picture);
    EXPECT_EQ(BackgroundColor, Color);
    EXPECT_EQ(SoundOn, 1);
    EXPECT_EQ(MainWindow().BackColor(), Color);
    EXPECT_EQ(MainWindow().Picture().size(), QSize(24, 24));
}

TEST_F(SettingsTest, ReadingBringsUpMainWindowAndLogInHidden) {
    ASSERT_EQ(ExistingForm(QStringLiteral("MainForm")), nullptr);
    ASSERT_EQ(ExistingForm(QStringLiteral("LogIn")), nullptr);
    ReadSettings();
    ASSERT_NE(ExistingForm(QStringLiteral("MainForm")), nullptr);
    ASSERT_NE(ExistingForm(QStringLiteral("LogIn")), nullptr);
    EXPECT_FALSE(IsShown(QStringLiteral("MainForm")));
    EXPECT_FALSE(IsShown(QStringLiteral("LogIn")));
}

TEST_F(SettingsTest, HomeVersionIsReadWithoutWriting) {
    PutSettings(false, Color);
    const QByteArray before = SettingsBytes();
    SchoolMode = Version::School;
    ReadSettings();
    EXPECT_EQ(SchoolMode, 0);
    EXPECT_EQ(SchoolFlag, 0);
    EXPECT_TRUE(Selected(QStringLiteral("ForHome")));
    EXPECT_FALSE(Selected(QStringLiteral("ForSchool")));
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Parents"));
    EXPECT_EQ(SettingsBytes(), before);
}

TEST_F(SettingsTest, AnyOtherFlagThanZeroMeansSchool) {
    for (const char* flag : {" 1 ", "-1 ", " 5 "}) {
        SCOPED_TRACE(flag);
        DropDefaultForms();
        PutSettings({QStringLiteral(" 0 "), QString(), QStringLiteral(" 0 "),
                     QString::fromLatin1(flag), QStringLiteral(" 1 ")});
        ReadSettings();
        EXPECT_EQ(SchoolMode, -1);
        EXPECT_TRUE(Selected(QStringLiteral("ForSchool")));
        EXPECT_FALSE(Selected(QStringLiteral("ForHome")));
        EXPECT_EQ(Teachers().Heading(), QStringLiteral("Teachers"));
        EXPECT_EQ(Students().Heading(), QStringLiteral("Sparkits"));
    }
}

TEST_F(SettingsTest, SchoolVersionSwapsTheStoredColorAtEachFreshLogInForm) {
    PutSettings(true, Color);
    const qint32 designed = MainWindow().BackColor();
    ASSERT_NE(designed, Color);

    // The start: the log-in form has just been loaded.
    ReadSettings();
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(designed));
    EXPECT_EQ(MainWindow().BackColor(), Color);
    EXPECT_EQ(BackgroundColor, Color);

    // After the log-in: the form was unloaded and is loaded again.
    EXPECT_TRUE(Default<LogIn>().Unload());
    ReadSettings();
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(Color));
    EXPECT_EQ(MainWindow().BackColor(), designed);
    EXPECT_EQ(BackgroundColor, designed);

    // The account view: the form is still there, hidden.
    ReadSettings();
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(Color));
    EXPECT_EQ(MainWindow().BackColor(), Color);
    EXPECT_EQ(BackgroundColor, Color);
}

TEST_F(SettingsTest, SchoolVersionKeepsTheOtherLinesWhileItRewritesTheFile) {
    const QString picture = PictureFile();
    PutSettings({QStringLiteral(" 1 "), picture, QStringLiteral(" 255 "), QStringLiteral(" 1 "),
                 QStringLiteral(" 2 ")});
    const qint32 designed = MainWindow().BackColor();
    ReadSettings();
    EXPECT_EQ(SettingsLines(),
              QStringList({QStringLiteral(" 1 "), picture, QStringLiteral(" %1 ").arg(designed),
                           QStringLiteral(" 1 "), QStringLiteral(" 2 ")}));
}

TEST_F(SettingsTest, LogInFormWithTheSchoolVersionGoesBackToHome) {
    PutSettings(true, Color);
    ReadSettings();
    PutSettings(false, Color);
    ReadSettings();
    EXPECT_EQ(SchoolMode, 0);
    EXPECT_TRUE(Selected(QStringLiteral("ForHome")));
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Parents"));
}

TEST_F(SettingsTest, OnlyOneGivesTheSoundItsCheckMark) {
    for (const char* sound : {"0", "2", "-1"}) {
        SCOPED_TRACE(sound);
        MainWindow().SetSoundMark(true);
        PutSettings({QStringLiteral("0"), QString(), QStringLiteral("0"), QStringLiteral("0"),
                     QString::fromLatin1(sound)});
        ReadSettings();
        EXPECT_FALSE(MainWindow().SoundMark());
        EXPECT_EQ(SoundOn, QString::fromLatin1(sound).toShort());
    }
    PutSettings(false, 0);
    ReadSettings();
    EXPECT_TRUE(MainWindow().SoundMark());
}

TEST_F(SettingsTest, SoundStoredAsTwoStaysTwoUntilTheSwitchIsUsed) {
    PutSettings({QStringLiteral("0"), QString(), QStringLiteral("0"), QStringLiteral("0"),
                 QStringLiteral("2")});
    ReadSettings();
    WriteSettings();
    EXPECT_EQ(SettingsLines().value(4), QStringLiteral(" 2 "));
    Choose(QLatin1String("SoundOnOff"));
    EXPECT_TRUE(MainWindow().SoundMark());
    EXPECT_EQ(SettingsLines().value(4), QStringLiteral(" 1 "));
}

TEST_F(SettingsTest, EmptyPathClearsThePicture) {
    MainWindow().SetPicture(QImage(PictureFile()));
    ASSERT_FALSE(MainWindow().Picture().isNull());
    PutSettings(false, Color);
    ReadSettings();
    EXPECT_TRUE(MainWindow().Picture().isNull());
}

TEST_F(SettingsTest, PathWithACommaIsCutThereAndTheLinesBehindShiftByOne) {
    // "back" is a picture; the path stored goes on with a comma and a number.
    const QString cut = Path(QStringLiteral("back"));
    ASSERT_TRUE(QFile::copy(PictureFile(), cut));
    for (const qint16 version : {qint16{1}, qint16{0}}) {
        SCOPED_TRACE(version);
        DropDefaultForms();
        BackgroundPicture = cut + QStringLiteral(",77");
        SchoolFlag = version;
        SoundOn = version == 0 ? 1 : 0;
        MainWindow().SetBackColor(5);
        WriteSettings();
        ReadSettings();
        EXPECT_EQ(BackgroundPicture, cut);
        EXPECT_EQ(BackgroundColor, 77);
        EXPECT_EQ(MainWindow().BackColor(), 77);
        // The colour's line is read as the version, the version's as the sound; the line of the
        // sound is not read at all.
        EXPECT_EQ(SchoolFlag, 1) << "written so by the option of the school version";
        EXPECT_EQ(SchoolMode, -1);
        EXPECT_EQ(SoundOn, version);
        EXPECT_EQ(MainWindow().SoundMark(), version == 1);
    }
}

TEST_F(SettingsTest, RestOfAPathBehindACommaThatIsNoNumberEndsTheRun) {
    BackgroundPicture = QStringLiteral("/pictures/me, Kim.png");
    WriteSettings();
    EXPECT_END_OF_RUN(13, ReadSettings());
}

TEST_F(SettingsTest, QuotedPathIsReadToTheClosingQuote) {
    const QString picture = PictureFile(QStringLiteral("one, two.png"));
    PutSettings({QStringLiteral("0"), QStringLiteral("\"%1\"").arg(picture), QStringLiteral("9"),
                 QStringLiteral("0"), QStringLiteral("1")});
    ReadSettings();
    EXPECT_EQ(BackgroundPicture, picture);
    EXPECT_EQ(BackgroundColor, 9);
}

TEST_F(SettingsTest, MissingFileEndsTheRun) {
    ASSERT_TRUE(QFile::remove(Path(QStringLiteral("Settings/Settings.txt"))));
    EXPECT_END_OF_RUN(53, ReadSettings());
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("Settings/Settings.txt"))));
}

TEST_F(SettingsTest, MissingFolderEndsTheRunAndIsNotMade) {
    ASSERT_TRUE(QDir(Path(QStringLiteral("Settings"))).removeRecursively());
    EXPECT_END_OF_RUN(76, ReadSettings());
    EXPECT_ERROR(76, WriteSettings());
    EXPECT_FALSE(QDir(Path(QStringLiteral("Settings"))).exists());
}

TEST_F(SettingsTest, ShortFileEndsTheRun) {
    PutSettings({QStringLiteral("0"), QString(), QStringLiteral("0"), QStringLiteral("0")});
    EXPECT_END_OF_RUN(62, ReadSettings());
}

TEST_F(SettingsTest, TextWhereANumberBelongsEndsTheRun) {
    PutSettings({QStringLiteral("yes"), QString(), QStringLiteral("0"), QStringLiteral("0"),
                 QStringLiteral("0")});
    EXPECT_END_OF_RUN(13, ReadSettings());
}

TEST_F(SettingsTest, NumberBeyondSixteenBitsEndsTheRun) {
    PutSettings({QStringLiteral("0"), QString(), QStringLiteral("70000"), QStringLiteral("0"),
                 QStringLiteral("70000")});
    EXPECT_END_OF_RUN(6, ReadSettings());
}

TEST_F(SettingsTest, MissingBackgroundPictureEndsTheRunAfterTheColorHasBeenSet) {
    PutSettings({QStringLiteral("0"), Path(QStringLiteral("gone.png")), QStringLiteral("123"),
                 QStringLiteral("0"), QStringLiteral("0")});
    EXPECT_END_OF_RUN(53, ReadSettings());
    EXPECT_EQ(MainWindow().BackColor(), 123);
    EXPECT_TRUE(MainWindow().SoundMark()) << "the sound's mark comes after the picture";
}

TEST_F(SettingsTest, ADeliveredBackgroundIsFoundInAProgramFolderThatHasMoved) {
    const QString former = Path(QStringLiteral("former/Backgrounds/Sea.png"));
    PutPicture(former);
    const QByteArray before = SettingsBytes();
    ReadSettings();
    EXPECT_EQ(MainWindow().Picture(), LoadPicture(Path(QStringLiteral("Backgrounds/Sea.png"))));
    EXPECT_EQ(BackgroundPicture, former);
    EXPECT_EQ(SettingsBytes(), before);
    WriteSettings();
    EXPECT_EQ(SettingsLines().value(1), former) << "and stays so";

    ASSERT_TRUE(QDir().mkpath(Path(QStringLiteral("former/Backgrounds"))));
    Paint(former, QSize(24, 24));
    ReadSettings();
    EXPECT_EQ(MainWindow().Picture().size(), QSize(24, 24)) << "the one named, where it is there";
}

TEST_F(SettingsTest, NoOtherPictureThatIsGoneIsLookedForElsewhere) {
    for (const char* gone : {"former/Sea.png", "former/Backgrounds/Own.png", "former/Backgrounds/",
                             "former/Backgrounds/more/Sea.png"}) {
        SCOPED_TRACE(gone);
        PutPicture(Path(QString::fromLatin1(gone)));
        EXPECT_END_OF_RUN(53, ReadSettings());
    }
}

TEST_F(SettingsTest, ThePictureIsReadAgainOnlyWhereItsFileIsAnother) {
    const QString one = Path(QStringLiteral("one.png"));
    const QString other = Path(QStringLiteral("other.png"));
    Paint(one, QSize(24, 24));
    Paint(other, QSize(24, 24));
    const auto read = [](const QString& path) {
        PutPicture(path);
        ReadSettings();
        return MainWindow().Picture().cacheKey();
    };
    const qint64 first = read(one);
    EXPECT_EQ(read(one), first);
    const qint64 ofOtherFile = read(other);
    EXPECT_NE(ofOtherFile, first);
    SetTime(other, 1);
    const qint64 ofOtherTime = read(other);
    EXPECT_NE(ofOtherTime, ofOtherFile);
    Paint(other, QSize(48, 36));
    SetTime(other, 1);
    EXPECT_NE(read(other), ofOtherTime);
    EXPECT_EQ(MainWindow().Picture().size(), QSize(48, 36));
    EXPECT_EQ(read(QString()), QImage().cacheKey());
    EXPECT_EQ(MainWindow().Picture(), QImage());

    read(other);
    ASSERT_EQ(::chmod(QFile::encodeName(Path(QString())).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(other).constData(), 0), 0);
    {
        const OrdinaryUser user;
        EXPECT_END_OF_RUN(75, ReadSettings());
    }
    ASSERT_TRUE(QFile::remove(other));
    EXPECT_END_OF_RUN(53, read(other));
    ASSERT_TRUE(QDir().mkpath(other));
    EXPECT_END_OF_RUN(75, read(other));
}

TEST_F(SettingsTest, BackgroundPictureThatIsNoneEndsTheRun) {
    PutSettings({QStringLiteral("0"), Path(QStringLiteral("Settings/Settings.txt")),
                 QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")});
    EXPECT_END_OF_RUN(481, ReadSettings());
}

TEST_F(SettingsTest, FaultOfTheWritingWithinTheReadingEndsTheRun) {
    PutSettings(true, Color);
    const QByteArray before = SettingsBytes();
    MakeSettingsReadOnly();
    EXPECT_END_OF_RUN(75, ReadSettings());
    EXPECT_EQ(SettingsBytes(), before);
    EXPECT_NE(MainWindow().BackColor(), Color) << "the colour comes after the version";
}

TEST_F(SettingsTest, ReadingAgainLeavesTheSessionsAccountAlone) {
    CurrentUser = QStringLiteral("Kim");
    CurrentState = QStringLiteral("Student");
    PutSettings(true, Color);
    ReadSettings();
    ReadSettings();
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
    EXPECT_EQ(CurrentState, QStringLiteral("Student"));
}

} // namespace
