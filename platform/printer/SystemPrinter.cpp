#include "platform/printer/SystemPrinter.h"

#include <QCoreApplication>
#include <QPrinter>
#include <QPrinterInfo>

std::unique_ptr<QPagedPaintDevice> SystemPrinter::Open() {
    // A QPrinter calls itself valid without any printer, so ask for the names of the real ones.
    const QStringList names = QPrinterInfo::availablePrinterNames();
    onFile_ = names.isEmpty();
    if (onFile_)
        return printouts_.Open();
    QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
    if (chosen.isNull())
        chosen = QPrinterInfo::printerInfo(names.first());
    auto printer = std::make_unique<QPrinter>(chosen, QPrinter::HighResolution);
    printer->setDocName(QCoreApplication::applicationName());
    return printer;
}

void SystemPrinter::Sent() {
    if (onFile_)
        printouts_.Sent();
}
