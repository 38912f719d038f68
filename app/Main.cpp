#include "app/RunProgram.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

namespace {

QtMessageHandler PlainMessages = nullptr;

/// The toolkit aborts where it finds no display to show windows on.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtFatalMsg) {
        PlainMessages(type, context, message);
        return;
    }
    std::fputs("Sparkit Dutygrid found no display to show its windows on. Please start it from the "
               "menus of your desktop, or from a terminal there.\n",
               stderr);
    std::_Exit(1);
}

} // namespace

int main(int argc, char** argv) {
    PlainMessages = qInstallMessageHandler(EndWithoutDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    return RunProgram(application);
}
