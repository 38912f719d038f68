#include "print/SheetSetUp.h"

#include "platform/printing/Printer.h"

void SetUpGrid(PrinterObject& printer) {
    printer.SetScaleWidth(21);
    printer.SetScaleHeight(30);
}

void SetUpSheet(PrinterObject& printer) {
    SetUpGrid(printer);
    printer.SetCurrentX(4);
    printer.SetCurrentY(1);
    printer.SetFontSize(18);
}

QString SheetName(const QStringList& parts) {
    QStringList said = parts;
    said.removeAll(QString());
    return said.join(QStringLiteral(" - "));
}
