#include "app/RunProgram.h"
#include "platform/desktop/NoDisplay.h"
#include "platform/desktop/TitleBars.h"

#include <QApplication>
#include <optional>

int main(int argc, char** argv) {
    PreferWindowsWithTitleBars();
    std::optional<NoDisplay> noDisplay("Sparkit Dutygrid");
    QApplication application(argc, argv);
    noDisplay.reset();
    return RunProgram(application);
}
