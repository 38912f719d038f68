#include "look/ProgramStyle.h"

#include <QApplication>
#include <QFont>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyProgramStyle(application);
    QCoreApplication::setApplicationName(QStringLiteral("Sparkit Dutygrid"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
