#pragma once

#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"
#include "tests/common/PrintedPages.h"
#include "widgets/ClickList.h"

using namespace Qt::StringLiterals;

/// The adult Mum is logged in on Wednesday 7 March 2001; Anna and Ben have charts and history.
class ReportTest : public FormTest {
protected:
    static inline const QString WithDates =
        u"Would you like to define a date range for your report?  If not, the entire Dutygrid "
        "history for this Sparkit will be printed."_s;
    static inline const QString WholeHistory =
        u"Are you sure you want to print this Sparkit's entire Dutygrid history?"_s;
    static inline const QString NoneInRange =
        u"There are no Dutygrids included in the date range you selected.  Please select a new "
        "date range."_s;
    static inline const QString EndNotBehindStart =
        u"Please make sure the Ending Date selected is greater than the Starting Date selected."_s;
    static inline const QString DeleteChart = u"Are you sure you want to delete this chart?"_s;

    static inline const QString Kids = u"StudentsList"_s;
    static inline const QString Histories = u"ListView2"_s;

    static inline const QString Chores = u"Chores Anna"_s;
    static inline const QString Piano = u"Piano Anna"_s;
    static inline const QString Week1 = u"History Chores Anna from: 3/4/2001"_s;
    static inline const QString Week2 = u"History Chores Anna from: 3/11/2001"_s;
    static inline const QString Week3 = u"History Chores Anna from: 3/18/2001"_s;

    void SetUp() override;

    /// Opens the form from the main window and waits for its activation.
    static Reportfrm& Open();
    static Reportfrm& Report();
    static DateRangefrm& Dialog();
    static bool IsShown(const QString& form);
    /// Brings a form to the front and lets it be activated.
    static void ToFront(::Form& form);

    static ClickList& List(const QString& name);
    static QStringList Entries(const QString& list);
    static QStringList Selected(const QString& list);
    /// A click on the entry of that text; `keys` held.
    static void Pick(const QString& list, const QString& entry, Qt::KeyboardModifiers keys = {});
    static void ClickBelow(const QString& list, Qt::MouseButton button = Qt::LeftButton);
    static void RightClick(const QString& list, const QString& entry);
    static void Push(const QString& button);

    /// Presses the button of the report by dates and says that dates are wanted.
    void AskForDates();
    /// Chooses a day in the dialog's calendar by keys.
    static void ChooseDay(const QDate& date);
    /// Gives one date by the buttons of the dialog; the calendar stood on `from`.
    static void GiveDate(const QString& button, const QDate& date);
    /// Gives both dates and answers the box that repeats them.
    void GiveDates(const QDate& start, const QDate& end);

    /// The text of the print job sent last.
    QString LastPrint() const { return PdfPrintTarget::TextOf(Paper.LastFile()); }
    PrintedPages LastPages() const { return PrintedPages(Paper.LastFile()); }
};
