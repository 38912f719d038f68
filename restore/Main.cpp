#include "platform/desktop/NoDisplay.h"
#include "platform/desktop/TitleBars.h"
#include "restore/RunRestore.h"

#include <QApplication>
#include <optional>

int main(int argc, char** argv) {
    PreferWindowsWithTitleBars();
    std::optional<NoDisplay> noDisplay("Sparkit Dutygrid Restore");
    QApplication application(argc, argv);
    noDisplay.reset();
    return RunRestore(application);
}
