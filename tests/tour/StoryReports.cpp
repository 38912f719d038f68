#include "platform/runtime/Dates.h"
#include "tests/tour/Story.h"

namespace {

const QList<Text> DayArrays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

Text Element(const Text& array, qsizetype index) {
    return QStringLiteral("%1(%2)").arg(array).arg(index);
}

} // namespace

void Story::OpenReview(const QList<Text>& charts, Here here) {
    Toolbar("Review");
    Front("WeekChartRepresentation", here);
    CaptionIs("Weekly Dutygrid Review", here);
    Lists("ChartList", charts, here);
    CanSee("Surface", false, here);
}

void Story::Review(const QList<ReviewLine>& lines, const QList<Text>& days, const Text& points,
                   Here here) {
    for (qsizetype line = 0; line < lines.size(); ++line) {
        Shows(Element("Job", line), lines[line].Job, here);
        Shows(Element("Points", line), lines[line].Value, here);
        Shows(Element("JobTotal", line), lines[line].Points, here);
        for (qsizetype day = 0; day < DayArrays.size(); ++day) {
            const Text cell = Element(DayArrays[day], line);
            const bool isPlanned = lines[line].Days[day] != QLatin1String("-");
            CanSee(cell, isPlanned, here);
            Shows(cell, isPlanned ? lines[line].Days[day] : Text(), here);
        }
    }
    Shows(Element("Job", lines.size()), "Total Points", here);
    Shows(Element("Points", lines.size()), points, here);
    for (qsizetype day = 0; day < DayArrays.size(); ++day)
        Shows(Element("DayTotal", day), days[day], here);
}

void Story::OpenReports(const QList<Text>& children, Here here) {
    Toolbar("Print");
    Front("Reportfrm", here);
    CaptionIs("Sparkit Dutygrid Report", here);
    Lists("StudentsList", children, here);
    Lists("ListView1", {}, here);
    Lists("ListView2", {}, here);
}

void Story::ReportsOf(const Text& child, const QList<Text>& charts, const QList<Text>& histories,
                      Here here) {
    Pick("StudentsList", child);
    Lists("ListView1", charts, here);
    Lists("ListView2", histories, here);
}

void Story::AskForDates(const Text& picture) {
    Boxes.Expect("Would you like to define a date range for your report?  If not, the entire "
                 "Dutygrid history for this Sparkit will be printed.",
                 QMessageBox::Yes, picture);
    Click("Command2");
    Front("DateRangefrm");
    CaptionIs("Select Date Range");
}

void Story::ChooseDates(const QDate& start, const QDate& end, const Text& message,
                        const Text& picture) {
    Click("Command1");
    ChooseDay("Calendar1", start);
    Click("Ok");
    CanSee("Calendar1", false);
    const Text half = "Starting from: " + Text(DateText(start)) + " until ";
    Shows("Label2", half);
    Click("Command2");
    ChooseDay("Calendar1", end);
    Boxes.Expect(half + Text(DateText(end)));
    if (!message.isEmpty())
        Boxes.Expect(message, QMessageBox::Ok, picture);
    Click("Ok");
    IsGone("DateRangefrm");
    Front("Reportfrm");
}
