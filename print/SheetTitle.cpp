#include "print/SheetTitle.h"

#include "platform/printing/Printer.h"

void PrintSheetTitle(PrinterObject& printer, const QString& title) {
    printer.SetScaleWidth(21);
    printer.SetScaleHeight(30);
    printer.SetCurrentX(4);
    printer.SetCurrentY(1);
    printer.SetFontSize(18);
    printer.Print(title);
}
