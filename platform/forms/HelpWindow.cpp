#include "platform/forms/HelpWindow.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

HelpWindow::HelpWindow() {
    setWindowTitle(QStringLiteral("Sparkit Dutygrid Help"));
    setAccessibleName(windowTitle());
    setOpenExternalLinks(true);
    document()->setDocumentMargin(24);
    resize(720, 620);
}

void HelpWindow::Open(const QString& helpFile) {
    // The file's name does not tell a browser that it is a page.
    QFile file(helpFile);
    if (file.open(QIODevice::ReadOnly)) {
        setSearchPaths({QFileInfo(helpFile).absolutePath()});
        setHtml(QString::fromUtf8(file.readAll()));
    }
    show();
    raise();
    activateWindow();
}
