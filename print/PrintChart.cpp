#include "platform/printing/Printer.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "print/SheetSetUp.h"
#include "store/ChartFields.h"
#include "store/ColorValues.h"
#include "store/DatabaseCls.h"
#include "store/DayTexts.h"
#include "store/Rows.h"

#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace {

/// A day goes to a new page when it would end below this grid row.
constexpr qint16 LastGridRow = 27;

/// Between a row's number and its job.
constexpr int BlanksBehindNumber = 29;

/// Jobs and points end before the rules of their columns.
constexpr double JobsEnd = 12.8;
constexpr double PointsEnd = 17.8;

/// The size of a row's mark: 18 points, or less where the rows of small paper are lower than that.
/// `lineHeight`: of a text of 10 points, in grid units.
int MarkPoints(double lineHeight) {
    constexpr double room = 0.9;
    return std::min(18, static_cast<int>(10 * room / lineHeight));
}

/// The title in the words of the three kinds of page; the recordset stands on its first row.
QString Title(const Recordset& rows, const QString& chartName, Mode blankBoxes,
              const QString& kidName) {
    const QString week = QStringLiteral("from %1 to %2")
                             .arg(TextOf(rows.Value(ChartField::FirstDate)),
                                  TextOf(rows.Value(ChartField::LastDate)));
    if (blankBoxes.IsFalse())
        return kidName + QStringLiteral("'s Job List - ") + week;
    if (!blankBoxes.IsTrue())
        return {};
    if (kidName.isEmpty())
        return QStringLiteral("Sparkit Dutygrid ") + week;
    return kidName + QStringLiteral("'s ") + chartName + QStringLiteral(" Dutygrid ") + week;
}

/// One call's way down the pages.
class ChartSheet {
public:
    ChartSheet(PrinterObject& printer, Mode blankBoxes, QString openMark)
        : printer_(printer), blankBoxes_(blankBoxes), openMark_(std::move(openMark)) {}

    /// Goes one grid row down.
    void NextLine() { LineNo = AddIntegers(LineNo, 1); }

    /// Breaks the page before a day that would not end on it. A day is never split.
    void MakeRoomFor(qint16 dayCount);

    /// The day's name, its box and the rules of the points and mark columns.
    void PrintDayHeader(const QString& dayName, qint16 dayCount, qint32 color);

    /// The job of the current row with its points and its mark.
    void PrintRow(const Recordset& row, qint16 itemNo);

private:
    void PrintMark(bool completed);

    PrinterObject& printer_;
    Mode blankBoxes_;
    QString openMark_;
    /// Grid rows from the top of the current page.
    qint16 LineNo = 0;
};

void ChartSheet::MakeRoomFor(qint16 dayCount) {
    if (AddIntegers(dayCount, LineNo) > LastGridRow) {
        LineNo = 0;
        printer_.NewPage();
    }
}

void ChartSheet::PrintDayHeader(const QString& dayName, qint16 dayCount, qint32 color) {
    printer_.SetCurrentX(9);
    printer_.SetCurrentY(LineNo + 1 + 0.1);
    printer_.SetForeColor(ColorValue::Red);
    printer_.SetFontSize(14);
    printer_.Print(dayName);
    printer_.SetForeColor(ColorValue::Black);
    // The name's height decides the box's top; whole grid rows bring the box onto the grid again.
    const qint16 BoxTop = ToInteger(printer_.CurrentY() + 0.3);
    const qint16 BoxBottom = ToInteger(printer_.CurrentY() + 0.3 + dayCount);
    printer_.SetDrawWidth(40);
    printer_.Box(1, BoxTop, 20, BoxBottom, color);
    printer_.SetDrawWidth(1);
    printer_.Line(13, BoxTop, 13, BoxBottom, ColorValue::Black);
    printer_.Line(18, BoxTop, 18, BoxBottom, ColorValue::Black);
}

void ChartSheet::PrintRow(const Recordset& row, qint16 itemNo) {
    printer_.SetCurrentX(1.2);
    printer_.SetCurrentY(LineNo + 2 + 0.2);
    printer_.SetFontSize(10);
    const QString number =
        QString::number(itemNo) + QLatin1Char('.') + QString(BlanksBehindNumber, QLatin1Char(' '));
    printer_.Print(number + TextOf(row.Value(ChartField::Instructions)),
                   {.End = JobsEnd, .Lead = number.size()});
    const double lineHeight = printer_.CurrentY() - (LineNo + 2 + 0.2);
    printer_.SetCurrentX(14);
    printer_.SetCurrentY(LineNo + 2 + 0.2);
    printer_.SetForeColor(ColorValue::Blue);
    printer_.Print(TextOf(row.Value(ChartField::Points)) + QStringLiteral(" Points"),
                   {.End = PointsEnd});
    printer_.SetForeColor(ColorValue::Black);
    printer_.SetCurrentX(19);
    printer_.SetCurrentY(LineNo + 2 + 0.1);
    printer_.SetFontSize(MarkPoints(lineHeight));
    // Nothing stored counts as not completed.
    PrintMark(row.Value(ChartField::Completed).toBool());
    if (itemNo > 1)
        printer_.Line(1, LineNo + 2, 20, LineNo + 2, ColorValue::Black);
    NextLine();
}

void ChartSheet::PrintMark(bool completed) {
    if (blankBoxes_.IsTrue())
        printer_.Print(EmptyBoxText);
    else if (blankBoxes_.IsFalse() && completed)
        printer_.PaintPicture(LoadPicture(InProgramFolder(QStringLiteral("Images/CheckWhite.jpg"))),
                              printer_.CurrentX(), printer_.CurrentY() + 0.1, 0.5, 0.5);
    else if (blankBoxes_.IsFalse())
        printer_.Print(openMark_);
}

qint32 ReturnRandomColor() {
    constexpr std::array<qint32, 7> Colors = {
        ColorValue::Of(0, 128, 0), ColorValue::Of(255, 255, 0), ColorValue::Of(40, 200, 255),
        ColorValue::Of(128, 0, 0), ColorValue::Of(255, 179, 5), ColorValue::Of(222, 0, 183),
        ColorValue::Of(0, 0, 128)};
    const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    QRandomGenerator generator(static_cast<quint32>(now));
    return Colors[generator.bounded(static_cast<quint32>(Colors.size()))];
}

/// A chart's name without that of the child it was made for.
QString CalledFor(const QString& chartName, const QString& kidName) {
    const QString behind = QLatin1Char(' ') + kidName;
    const bool isChilds = !kidName.isEmpty() && chartName.endsWith(behind);
    return isChilds ? chartName.chopped(behind.size()) : chartName;
}

/// The words by which a sheet of the chart is kept; the recordset stands on its first row.
QString NameOfSheet(const Recordset& rows, const QString& chartName, const QString& kidName) {
    return SheetName({kidName, CalledFor(chartName, kidName),
                      rows.Value(ChartField::FirstDate).toDate().toString(Qt::ISODate)});
}

/// The boxes of all days that have jobs.
void PrintDays(DatabaseCls& store, Recordset& rows, const QString& chartName, ChartSheet& sheet) {
    for (int number = 1; number <= DaysOfWeek; ++number) {
        const QString day = DayAbbreviation(number);
        sheet.NextLine();
        const qint16 DayCount = store.PrintReturnNr_Articles(day, chartName);
        if (DayCount == 0)
            continue;
        // The day before has left the cursor behind the last row.
        rows.MoveFirst();
        qint16 ItemNo = 1;
        bool FirstRow = true;
        sheet.MakeRoomFor(DayCount);
        ForEachRow(rows, [&] {
            if (!FallsOn(rows.Value(ChartField::DayOfWeek).toString(), day))
                return;
            if (FirstRow)
                sheet.PrintDayHeader(FullDayName(day), DayCount, ReturnRandomColor());
            FirstRow = false;
            sheet.PrintRow(rows, ItemNo);
            ItemNo = AddIntegers(ItemNo, 1);
        });
    }
}

} // namespace

void DatabaseCls::PrintChart(const QString& ChartName, Mode BlankBoxes, const QString& KidName,
                             const QString& OpenMark, const QString& SheetOf) {
    Recordset rows = Tables().OpenRecordset(ChartName);
    rows.MoveFirst();

    PrinterObject& printer = Printer();
    const PrintJobGuard job(printer);
    SetUpSheet(printer);
    printer.Print(Title(rows, ChartName, BlankBoxes, KidName));
    printer.SetDocName(NameOfSheet(rows, SheetOf.isEmpty() ? ChartName : SheetOf, KidName));

    ChartSheet sheet(printer, BlankBoxes, OpenMark);
    PrintDays(*this, rows, ChartName, sheet);
    printer.EndDoc();
}

void DatabaseCls::PrintChartsOf(const QList<ChildsChart>& Charts) {
    PrinterObject& printer = Printer();
    const PrintJobGuard job(printer);
    bool isFirst = true;
    for (const ChildsChart& chart : Charts) {
        Recordset rows = Tables().OpenRecordset(chart.Chart);
        rows.MoveFirst();
        if (!isFirst)
            printer.NewSheet();
        isFirst = false;
        SetUpSheet(printer);
        const QString called = CalledFor(chart.Chart, chart.Kid);
        printer.Print(Title(rows, called, true, chart.Kid));
        printer.SetDocName(NameOfSheet(rows, called, Charts.size() == 1 ? chart.Kid : QString()));

        ChartSheet sheet(printer, true, QString());
        PrintDays(*this, rows, chart.Chart, sheet);
    }
    printer.EndDoc();
}
