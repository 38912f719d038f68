#include "platform/desktop/SystemProgress.h"
#include "platform/runtime/Progress.h"
#include "tests/common/FormTest.h"
#include "tests/common/QuickEnough.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QTest>
#include <algorithm>

namespace {

const QString Work = QStringLiteral("Your Dutygrids are moved into a faster file...");

QProgressDialog* ShownWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<QProgressDialog*>(widget);
            window != nullptr && window->isVisible())
            return window;
    return nullptr;
}

class SystemProgressTest : public FormTest {};

TEST_F(SystemProgressTest, ShowsWorkThatTakesLongerThanASecondUntilItIsDone) {
    const SystemProgress progress;
    UntilQuickEnough([] {
        constexpr int toolkitGuessesFromThen = 50; // milliseconds
        ReportProgress(Work, 6000, 6000);
        QElapsedTimer time;
        time.start();
        ReportProgress(Work, 100, 6000);
        const bool isShown = ShownWindow() != nullptr;
        const bool isQuick = time.elapsed() < toolkitGuessesFromThen;
        EXPECT_FALSE(isQuick && isShown) << "at once";
        return isQuick;
    });
    QTest::qWait(1'100);
    // So near the end that the toolkit by itself would show no window any more.
    ReportProgress(Work, 5000, 6000);
    QProgressDialog* window = ShownWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->labelText(), Work);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(window->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(window->value(), 5000);
    EXPECT_EQ(window->maximum(), 6000);
    EXPECT_TRUE(window->findChildren<QPushButton*>().isEmpty()) << "it cannot be broken off";
    LookAt(*window, QStringLiteral("progress"));
    ReportProgress(Work, 6000, 6000);
    EXPECT_EQ(ShownWindow(), nullptr);
}

TEST_F(SystemProgressTest, TheHourglassStandsOverAllWindowsWhileNothingCanBeDone) {
    const SystemProgress progress;
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    ReportWaiting(true);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ReportWaiting(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(SystemProgressTest, NobodyIsToldOnceItHasGone) {
    { const SystemProgress progress; }
    ReportProgress(Work, 1, 2);
    const QWidgetList windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::none_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return qobject_cast<const QProgressDialog*>(window) != nullptr;
    }));
    ReportWaiting(true);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
