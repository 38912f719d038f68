#include "platform/desktop/SystemDesktop.h"
#include "help/HelpWindow.h"
#include "platform/runtime/Colors.h"
#include "platform/sound/WavePlayer.h"
#include "tests/common/FormTest.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLibrary>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {

class SystemDesktopTest : public FormTest {
protected:
    SystemDesktopTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    static HelpWindow* ShownHelp() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* help = dynamic_cast<HelpWindow*>(widget); help && help->isVisible())
                return help;
        return nullptr;
    }

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
    QTimer::singleShot(200, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->directory().absolutePath(), folder);
        Type(*dialog->findChild<QLineEdit*>(), chosen);
        QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ(desktop.OpenFile(folder), chosen);
    QTimer::singleShot(200, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(desktop.OpenFile(folder), std::nullopt);
}

TEST_F(SystemDesktopTest, ColoursHaveRedInTheLowByte) {
    EXPECT_EQ(ColorFromValue(255), QColor(255, 0, 0));
    EXPECT_EQ(ColorFromValue(16711680), QColor(0, 0, 255));
    EXPECT_EQ(ValueFromColor(QColor(1, 2, 3)), 1 + 2 * 256 + 3 * 65536);
    QTimer::singleShot(200, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(desktop.ChooseColor(255), std::nullopt);
}

TEST_F(SystemDesktopTest, SoundsReturnAtOnceWithOrWithoutADevice) {
    QElapsedTimer watch;
    watch.start();
    desktop.PlaySoundA(Path(QStringLiteral("sounds/applause.wav")), 0x20001);
    desktop.PlaySoundA(Path(QStringLiteral("sounds/turn.wav")), 0x20001);
    desktop.PlaySoundA(Path(QStringLiteral("sounds/none.wav")), 0x20001);
    EXPECT_LT(watch.elapsed(), 2000);
    EXPECT_TRUE(QLibrary(QCoreApplication::applicationDirPath() + QLatin1Char('/') +
                         QLatin1String(WavePlayerLibrary))
                    .isLoaded());
}

} // namespace
