#include "app/RunProgram.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    return RunProgram(application);
}
