#include "look/ProgramIcon.h"
#include "look/ProgramStyle.h"
#include "tests/tour/Album.h"

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <gtest/gtest.h>

/// Plays the tour and leaves its pictures and printed pages in the folder named.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: tour <output folder>\n");
        return 2;
    }
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QApplication::setQuitOnLastWindowClosed(false);
    // The tour's hand is faster than a person's: its clicks come at once after a list has dropped.
    QApplication::setDoubleClickInterval(20);
    QApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    QApplication::setWindowIcon(ProgramIcon());
    ApplyProgramStyle(application);

    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    if (!Album::SetFolder(folder)) {
        std::fprintf(stderr, "cannot write to %s\n", qPrintable(folder));
        return 2;
    }
    const int result = RUN_ALL_TESTS();

    const QStringList files = Album::Files();
    for (const QString& file : files)
        std::printf("%s\n", qPrintable(file));
    std::printf("%d files in %s\n", static_cast<int>(files.size()), qPrintable(folder));
    return result;
}
