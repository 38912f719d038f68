#include "session/Settings.h"
#include "shell/BackgroundOptions.h"
#include "shell/OtherOptions.h"
#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <sys/stat.h>

namespace {

class BackgroundOptionsTest : public ShellTest {
protected:
    BackgroundOptionsTest() {
        StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
        MainWindow().SetBackColor(4711);
        BackgroundPicture = QStringLiteral("before");
        BackgroundColor = 815;
        WriteSettings();
    }

    static BackgroundOptions& Open() {
        Choose(QLatin1String("BackOptions"));
        return Default<BackgroundOptions>();
    }

    void Browse(const std::optional<QString>& answer) {
        DesktopCalls.FileAnswers += answer;
        Click(Find(Default<BackgroundOptions>(), QStringLiteral("BrowseButton")));
    }

    void ChooseColor(std::optional<qint32> answer) {
        DesktopCalls.ColorAnswers += answer;
        Click(Find(Default<BackgroundOptions>(), QStringLiteral("SetColorbtn")));
    }

    static void PressOk() { Click(Find(Default<BackgroundOptions>(), QStringLiteral("Ok"))); }

    static bool SwatchShows() {
        return Find(Default<BackgroundOptions>(), QStringLiteral("Picture1")).isVisible();
    }

    static QColor Swatch() {
        return ColorOfLabel(Default<BackgroundOptions>(), QStringLiteral("Picture1"));
    }

    static bool IsOpen() { return ExistingForm(QStringLiteral("BackgroundOptions")) != nullptr; }

    static constexpr qint32 Orange = 255 + 256 * 128;
};

TEST_F(BackgroundOptionsTest, Captions) {
    BackgroundOptions& form = Open();
    EXPECT_EQ(form.Caption(), QStringLiteral("Set Background Color/Picture"));
    const QList<std::pair<const char*, const char*>> captions = {{"SetColorbtn", "SetColor"},
                                                                 {"BrowseButton", "Browse Picture"},
                                                                 {"Ok", "Ok"},
                                                                 {"Cancel", "Cancel"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(form, QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
    EXPECT_EQ(Find<QLabel>(form, QStringLiteral("Previewlbl")).text(), QStringLiteral("Preview"));
}

TEST_F(BackgroundOptionsTest, ColorIsPreviewedSetAndStored) {
    const QPointer<BackgroundOptions> form = &Open();
    ChooseColor(Orange);
    EXPECT_TRUE(SwatchShows());
    EXPECT_EQ(Swatch(), QColor(255, 128, 0));
    EXPECT_EQ(MainWindow().BackColor(), 4711) << "not before Ok";
    PressOk();
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(MainWindow().BackColor(), Orange);
    EXPECT_TRUE(MainWindow().Picture().isNull());
    EXPECT_EQ(BackgroundPicture, QString());
    EXPECT_EQ(BackgroundColor, Orange);
    EXPECT_EQ(SettingsLines().value(1), QString());
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(Orange));
}

TEST_F(BackgroundOptionsTest, PictureIsPreviewedSetAndStored) {
    Open();
    const QString picture = PictureFile();
    Browse(picture);
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(QString())) << "no initial folder";
    EXPECT_FALSE(SwatchShows());
    EXPECT_EQ(ColorOfLabel(Default<BackgroundOptions>(), QStringLiteral("Image1")),
              QColor(0x22, 0x66, 0xaa));
    PressOk();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(MainWindow().Picture().size(), QSize(24, 24));
    EXPECT_EQ(MainWindow().BackColor(), 0) << "the color dialog was not used";
    EXPECT_EQ(BackgroundPicture, picture);
    EXPECT_EQ(BackgroundColor, 0);
    EXPECT_EQ(SettingsLines().value(1), picture);
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" 0 "));
}

TEST_F(BackgroundOptionsTest, TheDeliveredBackgroundComesBack) {
    Open();
    Browse(PictureFile());
    Click(Find(Default<BackgroundOptions>(), QStringLiteral("Deliveredbtn")));
    EXPECT_TRUE(SwatchShows());
    EXPECT_EQ(Swatch(), QColor(0xc9, 0xdf, 0xdb));
    EXPECT_EQ(MainWindow().BackColor(), 4711) << "not before Ok";
    PressOk();
    EXPECT_TRUE(MainWindow().Picture().isNull());
    EXPECT_EQ(MainWindow().BackColor(), 14409673);
    EXPECT_EQ(SettingsLines().value(1), QString());
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" 14409673 "));
}

TEST_F(BackgroundOptionsTest, APictureThatNotAllUsersMayOpenIsWarnedOfAndTaken) {
    const auto setMode = [](const QString& path, mode_t mode) {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
    };
    const QString warning = QStringLiteral("Not everyone who uses Sparkit Dutygrid on this "
                                           "computer may open this picture, and for them "
                                           "the program could not start with it. Choose a picture "
                                           "that all may open, such as one of the "
                                           "folder Backgrounds.");
    setMode(Path(QString()), 0755);
    setMode(Path(QStringLiteral("Settings")), 0777);
    setMode(Path(QStringLiteral("Settings/Settings.txt")), 0666);
    Open();
    Browse(std::nullopt);
    const QString picture = PictureFile();
    setMode(picture, 0644);
    Browse(picture);
    setMode(picture, 0600);
    Boxes.Expect(warning);
    Browse(picture);
    EXPECT_EQ(Boxes.Last().Icon, PromptIcon::Exclamation);
    PressOk();
    EXPECT_EQ(BackgroundPicture, picture);
}

TEST_F(BackgroundOptionsTest, PictureThenColorGivesBothAndTheVariableFollowsAtTheNextRead) {
    Open();
    Browse(PictureFile());
    ChooseColor(Orange);
    EXPECT_TRUE(SwatchShows()) << "the swatch covers the picture";
    PressOk();
    EXPECT_EQ(MainWindow().BackColor(), Orange);
    EXPECT_FALSE(MainWindow().Picture().isNull());
    EXPECT_EQ(BackgroundColor, 0);
    EXPECT_EQ(SettingsLines().value(1), PictureFile());
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" %1 ").arg(Orange));
    ReadSettings();
    EXPECT_EQ(BackgroundColor, Orange);
    EXPECT_EQ(MainWindow().BackColor(), Orange);
    EXPECT_FALSE(MainWindow().Picture().isNull());
}

TEST_F(BackgroundOptionsTest, OkWithNeitherDialogClearsThePictureAndPaintsBlack) {
    MainWindow().SetPicture(QImage(PictureFile()));
    Open();
    EXPECT_EQ(Swatch(), QColor(Qt::black)) << "the preview shows what Ok does";
    PressOk();
    EXPECT_TRUE(MainWindow().Picture().isNull());
    EXPECT_EQ(MainWindow().BackColor(), 0);
    EXPECT_EQ(BackgroundPicture, QString());
    EXPECT_EQ(BackgroundColor, 0);
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" 0 "));
}

TEST_F(BackgroundOptionsTest, CancelledDialogsKeepWhatTheyHeld) {
    Open();
    Browse(PictureFile());
    Browse(std::nullopt);
    EXPECT_FALSE(SwatchShows());
    ChooseColor(Orange);
    ChooseColor(std::nullopt);
    EXPECT_EQ(Swatch(), QColor(255, 128, 0));
    PressOk();
    EXPECT_EQ(BackgroundPicture, PictureFile());
    EXPECT_EQ(MainWindow().BackColor(), Orange);
}

TEST_F(BackgroundOptionsTest, CancelChangesNothing) {
    Open();
    const QByteArray before = SettingsBytes();
    Browse(PictureFile());
    ChooseColor(Orange);
    Click(Find(Default<BackgroundOptions>(), QStringLiteral("Cancel")));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(MainWindow().BackColor(), 4711);
    EXPECT_EQ(BackgroundPicture, QStringLiteral("before"));
    EXPECT_EQ(BackgroundColor, 815);
    EXPECT_EQ(SettingsBytes(), before);
}

TEST_F(BackgroundOptionsTest, FileThatIsNoPictureIsReportedAndNotChosen) {
    Open();
    const QByteArray before = SettingsBytes();
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(SwatchShows());
    EXPECT_EQ(SettingsBytes(), before);
    EXPECT_EQ(MainWindow().BackColor(), 4711);

    Browse(PictureFile());
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    PressOk();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(BackgroundPicture, PictureFile()) << "the one in the preview";
    EXPECT_EQ(MainWindow().Picture().size(), QSize(24, 24));
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(BackgroundOptionsTest, PictureThatHasGoneIsReportedAndNothingIsStored) {
    Open();
    const QByteArray before = SettingsBytes();
    const QString picture = PictureFile();
    Browse(picture);
    ASSERT_TRUE(QFile::remove(picture));
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(SettingsBytes(), before);
    EXPECT_EQ(MainWindow().BackColor(), 4711);
}

TEST_F(BackgroundOptionsTest, SettingsThatCannotBeWrittenAreReportedAndTheFormStays) {
    Open();
    ASSERT_TRUE(QDir(Path(QStringLiteral("Settings"))).removeRecursively());
    Boxes.ExpectError(ErrorNumber::PathNotFound);
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Ends.isEmpty());
}

class OtherOptionsTest : public ShellTest {
protected:
    OtherOptionsTest() { StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher")); }

    static OtherOptions& Open() {
        Choose(QLatin1String("OtherOp"));
        return Default<OtherOptions>();
    }

    static QRadioButton& Option(const char* name) {
        return Find<QRadioButton>(Default<OtherOptions>(), QString::fromLatin1(name));
    }
};

TEST_F(OtherOptionsTest, TextsAndTheStoredChoice) {
    OtherOptions& form = Open();
    EXPECT_EQ(form.Caption(), QStringLiteral("Sparkit Dutygrid Account Options"));
    EXPECT_EQ(Find<QLabel>(form, QStringLiteral("Heading")).text(),
              QStringLiteral("Dutygrid Account Options"));
    EXPECT_EQ(Option("Option1").text(), QStringLiteral("Allow Sparkit to see their account only."));
    EXPECT_EQ(Option("Option2").text(), QStringLiteral("Allow Sparkit  to see other accounts."));
    EXPECT_EQ(Find<QPushButton>(form, QStringLiteral("Ok")).text(), QStringLiteral("Ok"));
    EXPECT_EQ(Find<QPushButton>(form, QStringLiteral("Cancel")).text(), QStringLiteral("Cancel"));
    EXPECT_TRUE(Option("Option1").isChecked());
}

TEST_F(OtherOptionsTest, AnyOtherValueThanZeroSelectsTheSecondOption) {
    SeeOtherAccounts = 5;
    Open();
    EXPECT_TRUE(Option("Option2").isChecked());
    EXPECT_FALSE(Option("Option1").isChecked());
}

TEST_F(OtherOptionsTest, OkStoresTheChoice) {
    Open();
    Click(Option("Option2"));
    EXPECT_EQ(SeeOtherAccounts, 0) << "not before Ok";
    Click(Find(Default<OtherOptions>(), QStringLiteral("Ok")));
    EXPECT_EQ(SeeOtherAccounts, 1);
    EXPECT_EQ(SettingsLines().value(0), QStringLiteral(" 1 "));
    EXPECT_EQ(ExistingForm(QStringLiteral("OtherOptions")), nullptr);

    Open();
    EXPECT_TRUE(Option("Option2").isChecked());
    Click(Option("Option1"));
    Click(Find(Default<OtherOptions>(), QStringLiteral("Ok")));
    EXPECT_EQ(SeeOtherAccounts, 0);
    EXPECT_EQ(SettingsLines().value(0), QStringLiteral(" 0 "));
}

TEST_F(OtherOptionsTest, CancelChangesNothing) {
    const QByteArray before = SettingsBytes();
    Open();
    Click(Option("Option2"));
    Click(Find(Default<OtherOptions>(), QStringLiteral("Cancel")));
    EXPECT_EQ(SeeOtherAccounts, 0);
    EXPECT_EQ(SettingsBytes(), before);
    EXPECT_EQ(ExistingForm(QStringLiteral("OtherOptions")), nullptr);
}

} // namespace
