#include "platform/printing/Printer.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "print/SheetSetUp.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/Rows.h"
#include "store/TableNames.h"

void DatabaseCls::PrintUsersPasswords() {
    Recordset rows = Tables().OpenRecordset(UsersTable);
    PrinterObject& printer = Printer();
    const PrintJobGuard job(printer);
    printer.SetDocName(SheetName({QStringLiteral("List of users"), Today().toString(Qt::ISODate)}));
    SetUpSheet(printer);
    printer.Print(QStringLiteral("List of Sparkit Dutygrid users and passwords"));

    qint16 LineNo = 1;
    ForEachRow(rows, [&] {
        LineNo = AddIntegers(LineNo, 1);
        printer.SetCurrentX(2);
        printer.SetCurrentY(LineNo);
        printer.Print(QStringLiteral("User Name Is: ") + TextOf(rows.Value(AccountField::Name)) +
                      QStringLiteral("     Password Is: ") +
                      TextOf(rows.Value(AccountField::Password)));
        // Tested behind the line, so that the one at 29 still stands on its page.
        if (LineNo > 28) {
            printer.NewPage();
            LineNo = 0;
        }
    });
    printer.EndDoc();
}
