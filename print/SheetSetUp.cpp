#include "print/SheetSetUp.h"

#include "platform/printing/Printer.h"

void SetUpSheet(PrinterObject& printer) {
    printer.SetScaleWidth(21);
    printer.SetScaleHeight(30);
    printer.SetCurrentX(4);
    printer.SetCurrentY(1);
    printer.SetFontSize(18);
}
