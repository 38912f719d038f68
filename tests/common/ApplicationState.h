#pragma once

#include "look/ProgramStyle.h"

#include <QApplication>
#include <QIcon>
#include <QString>
#include <QtGlobal>

/// What a start of a program sets for the whole process, and a test may set: it is as before
/// afterwards, and the look that of the program.
class ApplicationState {
public:
    ApplicationState() = default;
    ~ApplicationState() {
        QCoreApplication::setApplicationName(name_);
        QGuiApplication::setDesktopFileName(entry_);
        QApplication::setWindowIcon(icon_);
        QApplication::setQuitOnLastWindowClosed(quits_);
        ApplyProgramStyle(*qApp);
    }
    Q_DISABLE_COPY_MOVE(ApplicationState)

private:
    QString name_ = QCoreApplication::applicationName();
    QString entry_ = QGuiApplication::desktopFileName();
    QIcon icon_ = QApplication::windowIcon();
    bool quits_ = QApplication::quitOnLastWindowClosed();
};

/// While it lives dialogs for files and colours are the toolkit's own.
class ToolkitDialogs {
public:
    ToolkitDialogs() { QCoreApplication::setAttribute(Attribute); }
    ~ToolkitDialogs() { QCoreApplication::setAttribute(Attribute, former_); }
    Q_DISABLE_COPY_MOVE(ToolkitDialogs)

private:
    static constexpr Qt::ApplicationAttribute Attribute = Qt::AA_DontUseNativeDialogs;
    bool former_ = QCoreApplication::testAttribute(Attribute);
};
