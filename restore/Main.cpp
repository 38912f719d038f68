#include "platform/desktop/NoDisplay.h"
#include "restore/RunRestore.h"

#include <QApplication>
#include <optional>

int main(int argc, char** argv) {
    std::optional<NoDisplay> noDisplay("Sparkit Dutygrid Restore");
    QApplication application(argc, argv);
    noDisplay.reset();
    return RunRestore(application);
}
