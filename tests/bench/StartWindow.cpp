#include "tests/bench/PaintWatch.h"

#include "app/RunProgram.h"
#include "widgets/HeadedList.h"

namespace {

bool IsLogIn(const QWidget& widget) {
    return widget.isWindow() && widget.objectName() == QLatin1String("LogIn");
}

/// The log-in form's list of children, filled, is on the screen.
bool IsFilledList(const QWidget& widget) {
    const auto* list = qobject_cast<const HeadedList*>(widget.parentWidget());
    return list != nullptr && list->objectName() == QLatin1String("StudentsList") &&
           list->topLevelItemCount() > 0;
}

} // namespace

/// The program's start on the program folder that is given, up to the first paint of the log-in
/// form or, with a second argument, up to the moment at which the accounts can be seen in it.
int main(int argc, char** argv) {
    PaintWatch application(argc, argv, argc > 2 ? IsFilledList : IsLogIn);
    return RunProgram(application, QString::fromLocal8Bit(argv[1]));
}
