#include "shell/RunProgram.h"
#include "shell/session/Session.h"

#include <QApplication>

int main(int argc, char** argv) {
    Database().OpenAhead();
    QApplication application(argc, argv);
    return RunProgram(application);
}
