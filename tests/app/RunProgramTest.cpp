#include "app/RunProgram.h"

#include "help/HelpWindow.h"
#include "platform/printing/Printer.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/FolderUse.h"
#include "platform/runtime/Progress.h"
#include "shell/LogIn.h"
#include "store/DailyCopies.h"
#include "support/clsRegistry.h"
#include "tests/common/ApplicationState.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"
#include "widgets/HeadedList.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QIcon>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <algorithm>

namespace {

/// The whole program, from its start to its end, in this process.
class RunProgramTest : public ProgramTest {
protected:
    RunProgramTest() {
        // What the tests have set for themselves.
        qApp->setStyleSheet(QString());
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setWindowIcon(QIcon());
        QApplication::setQuitOnLastWindowClosed(true);
        QGuiApplication::setDesktopFileName(QString());
        QCoreApplication::setApplicationName(QStringLiteral("tests"));
        // The program opens it for itself, and greets nobody.
        Arrange([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("a"),
                               QStringLiteral("Student"), PictureFile());
        });
        ResetSession();
        clsRegistry registry;
        const QString key = QStringLiteral("Dutygrid");
        registry.CreateKey(HKEY_CURRENT_USER, key);
        registry.SetValue(HKEY_CURRENT_USER, key, QStringLiteral("RunningTimes2"), 1);
    }
    ~RunProgramTest() override {
        DropDefaultForms();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The program's exit code; `user` has the log-in form as soon as it is active.
    int Run(const std::function<void(LogIn&)>& user) {
        QTimer look;
        QElapsedTimer watch;
        watch.start();
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* logIn = dynamic_cast<LogIn*>(ExistingForm(FormNames::LogIn));
            if (logIn != nullptr && logIn->isActiveWindow()) {
                look.stop();
                user(*logIn);
            } else if (watch.hasExpired(Patience)) {
                look.stop();
                ADD_FAILURE() << "the log-in does not come";
                QCoreApplication::exit(99);
            }
        });
        look.start(10);
        QTimer tooLong;
        tooLong.callOnTimeout([] { QCoreApplication::exit(99); });
        tooLong.start(2 * Patience);
        return RunProgram(*qApp, folder_);
    }

    static void Push(const LogIn& logIn, const QString& button) {
        auto* control = logIn.findChild<QPushButton*>(button);
        ASSERT_NE(control, nullptr);
        QTest::mouseClick(control, Qt::LeftButton);
    }

    static int ShownHelps() {
        int shown = 0;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            shown += dynamic_cast<const HelpWindow*>(widget) != nullptr && widget->isVisible();
        return shown;
    }

    const QString folder_ = Path(QString());

private:
    ApplicationState state_;
};

TEST_F(RunProgramTest, ItComesUnderItsNameInItsLookAndEndsByItsExit) {
    const int code = Run([](const LogIn& logIn) {
        EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("Sparkit Dutygrid"));
        EXPECT_EQ(QGuiApplication::desktopFileName(),
                  QStringLiteral("example.sparkit_dutygrid.Dutygrid"));
        EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
        EXPECT_FALSE(qApp->styleSheet().isEmpty());
        auto* children = logIn.findChild<HeadedList*>(QStringLiteral("StudentsList"));
        ASSERT_NE(children, nullptr);
        EXPECT_EQ(children->topLevelItemCount(), 1) << "from the folder given";
        EXPECT_TRUE(WeeklyReview) << "the forms are known";
        DefaultForm(FormNames::MainForm);
        Push(logIn, QStringLiteral("Exitbtn"));
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(ExistingForm(FormNames::LogIn), nullptr);
    EXPECT_EQ(ExistingForm(FormNames::MainForm), nullptr);
}

TEST_F(RunProgramTest, ItsWindowsGetTheIconOnceOneHasBeenPainted) {
    Run([](LogIn& logIn) {
        EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }, Patience));
        QApplication::setWindowIcon(QIcon());
        logIn.repaint();
        QCoreApplication::processEvents();
        EXPECT_TRUE(QApplication::windowIcon().isNull()) << "read once only";
        Push(logIn, QStringLiteral("Exitbtn"));
    });
}

TEST_F(RunProgramTest, FontsThatLieBesideItAreThereOnceAWindowHasBeenPainted) {
    QDirIterator installed(QStringLiteral("/usr/share/fonts"), {QStringLiteral("*.ttf")},
                           QDir::Files, QDirIterator::Subdirectories);
    ASSERT_TRUE(installed.hasNext());
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/lib/fonts");
    // Other tests of the program may run at the same time.
    const QString font =
        QStringLiteral("%1/%2.ttf").arg(folder).arg(QCoreApplication::applicationPid());
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile::copy(installed.next(), font));
    const auto end = qScopeGuard([&] {
        QFontDatabase::removeAllApplicationFonts();
        QFile::remove(font);
    });
    QFontDatabase::removeAllApplicationFonts();
    Run([](const LogIn& logIn) {
        EXPECT_TRUE(QTest::qWaitFor(
            [] { return !QFontDatabase::applicationFontFamilies(0).isEmpty(); }, Patience));
        Push(logIn, QStringLiteral("Exitbtn"));
    });
}

TEST_F(RunProgramTest, HelpBoxesAndTheWordOnLongWorkAreThoseOfTheDesktop) {
    Run([](const LogIn& logIn) {
        Push(logIn, QStringLiteral("cmdHelp"));
        EXPECT_EQ(ShownHelps(), 1);
        Push(logIn, QStringLiteral("cmdHelp"));
        EXPECT_EQ(ShownHelps(), 1);
        {
            const NextBox next([](QWidget& box) {
                EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text(),
                          QStringLiteral("Please select a user or create a new one."));
                box.close();
            });
            Push(logIn, QStringLiteral("LogInbtn"));
        }
        ReportProgress(QStringLiteral("Long work"), 1, 2);
        const auto isProgress = [](const QWidget* widget) {
            return qobject_cast<const QProgressDialog*>(widget) != nullptr;
        };
        const QWidgetList windows = QApplication::topLevelWidgets();
        EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), isProgress));
        ReportProgress(QStringLiteral("Long work"), 2, 2);
        EXPECT_NO_THROW(Printer());
        Push(logIn, QStringLiteral("Exitbtn"));
    });
    EXPECT_EQ(ShownHelps(), 0);
}

TEST_F(RunProgramTest, ItHoldsItsDataAndCopiesThemBeforeTheFirstChange) {
    const QString data = folder_ + QStringLiteral("Database");
    Run([&](const LogIn& logIn) {
        EXPECT_EQ(FolderUse::Alone(data), nullptr) << "no copy can be put back meanwhile";
        EXPECT_FALSE(QFileInfo::exists(CopiesFolder()));
        RunAction([] { Database().AddPoints(QStringLiteral("Anna"), 5, false); });
        Push(logIn, QStringLiteral("Exitbtn"));
    });
    EXPECT_NE(FolderUse::Alone(data), nullptr);
    EXPECT_EQ(
        QDir(folder_ + QStringLiteral("Backups")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
        QStringList{QDate::currentDate().toString(Qt::ISODate)});
}

TEST_F(RunProgramTest, ItDoesNotStartWhileACopyIsPutBack) {
    const auto restoring = FolderUse::Alone(folder_ + QStringLiteral("Database"));
    const NextBox next([](QWidget& box) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text(),
                  QStringLiteral("Run-time error '70':\n\nSparkit Dutygrid Restore is just putting "
                                 "back a copy. Please start Sparkit Dutygrid again in a moment."));
        box.close();
    });
    EXPECT_EQ(Run([](const LogIn&) {
                  ADD_FAILURE() << "nobody can log in";
                  QCoreApplication::exit(99);
              }),
              1);
}

TEST_F(RunProgramTest, AnErrorInTheStartIsToldAndEndsTheRun) {
    QFile database(folder_ + QStringLiteral("Database/Charts.mdb"));
    ASSERT_TRUE(database.open(QIODevice::WriteOnly | QIODevice::Truncate));
    database.write("no database, but long enough to be one");
    database.close();
    const NextBox next([](QWidget& box) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(box).icon(), QMessageBox::Critical);
        box.close();
    });
    EXPECT_EQ(Run([](const LogIn&) {
                  ADD_FAILURE() << "nobody can log in";
                  QCoreApplication::exit(99);
              }),
              1);
}

} // namespace
