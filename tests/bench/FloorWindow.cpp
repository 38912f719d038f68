#include "tests/bench/PaintWatch.h"

#include <QMainWindow>

/// The least that a program with a window does: an empty main window, up to its first paint.
int main(int argc, char** argv) {
    PaintWatch application(argc, argv, [](const QWidget& widget) { return widget.isWindow(); });
    QMainWindow window;
    window.show();
    return QApplication::exec();
}
