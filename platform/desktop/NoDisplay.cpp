#include "platform/desktop/NoDisplay.h"

#include <cstdio>
#include <cstdlib>

namespace {

QtMessageHandler plainMessages = nullptr;
const char* programName = "";

void EndAtFatal(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtFatalMsg) {
        plainMessages(type, context, message);
        return;
    }
    std::fprintf(stderr,
                 "%s found no display to show its windows on. Please start it from the menus of "
                 "your desktop, or from a terminal there.\n",
                 programName);
    std::_Exit(1);
}

} // namespace

NoDisplay::NoDisplay(const char* program) {
    programName = program;
    plainMessages = qInstallMessageHandler(EndAtFatal);
}

NoDisplay::~NoDisplay() {
    qInstallMessageHandler(nullptr);
}
