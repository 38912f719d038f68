#include "platform/desktop/SystemDesktop.h"
#include "help/HelpWindow.h"
#include "platform/runtime/Colors.h"
#include "platform/sound/WavePlayer.h"
#include "tests/common/ApplicationState.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"
#include "tests/common/QuickEnough.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLibrary>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

namespace {

class SystemDesktopTest : public FormTest {
protected:
    static HelpWindow* ShownHelp() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* help = dynamic_cast<HelpWindow*>(widget); help && help->isVisible())
                return help;
        return nullptr;
    }

    ToolkitDialogs dialogs_;
    HelpWindow help_;
    SystemDesktop desktop{[this](const QString& file) { help_.Open(file); }};
};

TEST_F(SystemDesktopTest, TheHelpFileOpensInItsOwnWindow) {
    desktop.ShowHelp(Path(QStringLiteral("HelpFile/DutygridHlp.hlp")), 9);
    Settle();
    HelpWindow* help = ShownHelp();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->windowTitle(), QStringLiteral("Welcome - Sparkit Dutygrid Help"));
    desktop.ShowHelp(Path(QStringLiteral("HelpFile/DutygridHlp.hlp")), 9);
    EXPECT_EQ(ShownHelp(), help);
}

TEST_F(SystemDesktopTest, AMissingHelpFileIsSaidInTheHelpWindow) {
    desktop.ShowHelp(Path(QStringLiteral("no")), 9);
    ASSERT_NE(ShownHelp(), nullptr);
    EXPECT_EQ(ShownHelp()->windowTitle(),
              QStringLiteral("There is no help - Sparkit Dutygrid Help"));
}

TEST_F(SystemDesktopTest, AFileChosenInTheDialogIsReturnedAndACancelIsNothing) {
    const QString folder = Path(QStringLiteral("UsersPictures"));
    const QString chosen = folder + QStringLiteral("/House.png");
    {
        const NextBox next([&](QWidget& box) {
            auto& dialog = dynamic_cast<QFileDialog&>(box);
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open"));
            EXPECT_EQ(dialog.directory().absolutePath(), folder);
            EXPECT_EQ(
                dialog.nameFilters(),
                QStringList(QStringLiteral("Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.ico)")));
            dialog.findChild<QLineEdit*>()->setFocus();
            Type(*dialog.findChild<QLineEdit*>(), chosen);
            Press(*dialog.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        EXPECT_EQ(desktop.OpenFile(folder), chosen);
    }
    const NextBox next([](QWidget& box) { box.close(); });
    EXPECT_EQ(desktop.OpenFile(folder), std::nullopt);
}

TEST_F(SystemDesktopTest, WithoutAFolderTheDialogOffersAllFiles) {
    const NextBox next([](QWidget& box) {
        const QStringList filters = dynamic_cast<QFileDialog&>(box).nameFilters();
        EXPECT_EQ(filters, QStringList(QStringLiteral("All Files (*)")));
        box.close();
    });
    EXPECT_EQ(desktop.OpenFile(QString()), std::nullopt);
}

TEST_F(SystemDesktopTest, TheDialogForFilesDeletesAndRenamesNothing) {
    const QString folder = Path(QStringLiteral("UsersPictures"));
    const QStringList before = QDir(folder).entryList();
    for (const QString& start : {folder, QString()}) {
        const NextBox next([&](QWidget& box) {
            auto& dialog = dynamic_cast<QFileDialog&>(box);
            EXPECT_TRUE(dialog.testOption(QFileDialog::ReadOnly));
            EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
            dialog.selectFile(folder + QStringLiteral("/House.png"));
            auto* list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
            ASSERT_NE(list, nullptr);
            list->setFocus();
            Press(*list, Qt::Key_Delete);
            Press(*list, Qt::Key_F2);
            EXPECT_FALSE(list->model()->flags(list->currentIndex()).testFlag(Qt::ItemIsEditable));
            box.close();
        });
        EXPECT_EQ(desktop.OpenFile(start), std::nullopt);
    }
    EXPECT_EQ(QDir(folder).entryList(), before);
}

TEST_F(SystemDesktopTest, ColoursHaveRedInTheLowByte) {
    EXPECT_EQ(ColorFromValue(255), QColor(255, 0, 0));
    EXPECT_EQ(ColorFromValue(16711680), QColor(0, 0, 255));
    EXPECT_EQ(ValueFromColor(QColor(1, 2, 3)), 1 + 2 * 256 + 3 * 65536);
}

TEST_F(SystemDesktopTest, AColourChosenInTheDialogIsReturnedAndACancelIsNothing) {
    {
        const NextBox next([](QWidget& box) {
            auto& dialog = dynamic_cast<QColorDialog&>(box);
            EXPECT_EQ(dialog.currentColor(), QColor(255, 0, 0));
            for (int square = 0; square < QColorDialog::customCount(); ++square) {
                const QColor pastel = QColorDialog::customColor(square);
                EXPECT_EQ(pastel.value(), 255) << square;
                EXPECT_EQ(pastel.saturation(), 40) << square;
            }
            EXPECT_NE(QColorDialog::customColor(0), QColorDialog::customColor(1));
            dialog.setCurrentColor(QColor(1, 2, 3));
            dialog.accept();
        });
        EXPECT_EQ(desktop.ChooseColor(255), 1 + 2 * 256 + 3 * 65536);
    }
    const NextBox next([](QWidget& box) { box.close(); });
    EXPECT_EQ(desktop.ChooseColor(255), std::nullopt);
}

/// Takes the place of the desktop's programs for pages and files.
class Opener : public QTextBrowser {
public:
    Opener() {
        for (const QString& scheme : Schemes)
            QDesktopServices::setUrlHandler(scheme, this, "setSource");
    }
    ~Opener() override {
        for (const QString& scheme : Schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    QStringList Opened;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType) override {
        Opened += url.toString();
    }

private:
    const QStringList Schemes{QStringLiteral("file"), QStringLiteral("http")};
};

TEST_F(SystemDesktopTest, FilesAndPagesAreOpenedByTheDesktop) {
    Opener opener;
    desktop.ShellExecute(QStringLiteral("open"), QStringLiteral("/a folder/50%#1?.pdf"), 0);
    desktop.ShellExecute(QStringLiteral("open"), QStringLiteral("http://example.com/a?b=1#c"), 3);
    EXPECT_EQ(opener.Opened, QStringList({QStringLiteral("file:///a folder/50%25%231%3F.pdf"),
                                          QStringLiteral("http://example.com/a?b=1#c")}));
}

TEST_F(SystemDesktopTest, LessMotionIsWantedWhereThePersonsSettingsSaySo) {
    EXPECT_FALSE(desktop.WantsLessMotion());
    const QString folder = Path(QStringLiteral("UserConfig"));
    QDir().mkpath(folder);
    QFile settings(folder + QStringLiteral("/kdeglobals"));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[KDE]\nAnimationDurationFactor=0\n");
    settings.close();
    EXPECT_TRUE(desktop.WantsLessMotion());
}

TEST_F(SystemDesktopTest, SoundsReturnAtOnceWithOrWithoutADevice) {
    UntilQuickEnough([this] {
        QElapsedTimer watch;
        watch.start();
        desktop.PlaySoundA(Path(QStringLiteral("sounds/applause.wav")), 0x20001);
        desktop.PlaySoundA(Path(QStringLiteral("sounds/turn.wav")), 0x20001);
        return watch.elapsed() < 2000;
    });
    EXPECT_TRUE(QLibrary(QCoreApplication::applicationDirPath() + QLatin1Char('/') +
                         QLatin1String(WavePlayerLibrary))
                    .isLoaded());
}

TEST_F(SystemDesktopTest, WhatIsNoWholeSoundStaysSilent) {
    QFile sound(Path(QStringLiteral("sounds/applause.wav")));
    ASSERT_TRUE(sound.open(QIODevice::ReadOnly));
    const QByteArray whole = sound.readAll();
    const QString path = Path(QStringLiteral("sounds/own.wav"));
    desktop.PlaySoundA(path, 0x20001);
    for (const QByteArray& content :
         {QByteArray(), QByteArray("no sound"), whole.left(12), whole.left(44), whole.left(5000)}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        // To hand one on would freeze the program for good.
        desktop.PlaySoundA(path, 0x20001);
        Settle();
    }
}

} // namespace
