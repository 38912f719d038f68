#pragma once

#include "tests/tour/Tour.h"

/// An account as its owner makes it.
struct Account {
    Text Name;
    Text Password;
    /// An adult's, else a child's.
    bool Adult;
    /// A file of the stock pictures.
    Text Picture;
};

/// One line of a chart editor. `Adult` "" keeps the one that the editor offers.
struct Job {
    Text Instructions;
    Text Day;
    Text Adult;
    Text Difficulty;
    Text Points;
};

/// A line of the weekly review. A day's cell is "-" where the job is not to be done, "" while it is
/// open, and else the number of times that it has been done.
struct ReviewLine {
    Text Job;
    Text Value;
    QList<Text> Days;
    Text Points;
};

/// What the people of all chapters do again and again, step by step through the windows.
class Story : public Tour {
protected:
    using Tour::Tour;

    /// From the log-in form and back to it. `picture`: the filled form is taken, "" for no picture.
    void NewAccount(const Account& account, const Text& picture = "");
    /// From the log-in form into the session. Leaves open which form comes to the front.
    void LogIn(const Text& list, const Text& name, const Text& password);
    void AdultLogsIn(const Text& name, const Text& password);
    void ChildLogsIn(const Text& name, const Text& password);
    /// By the toolbar, back to the log-in form.
    void LogOff();

    /// Chooses one of the stock pictures of the folder in the form in front, which shows it then.
    void BrowseForPicture(const Text& folder, const Text& file);

    /// Opens an editor on a new chart.
    void BeginChart(const Text& name);
    /// Fills a row of the editor; the one behind the last is added first.
    void WriteJob(int row, const Job& job);
    /// Saves the editor's chart for these children, and reads the message that comes then.
    /// `print`: the name of the charts just saved as they are printed together; "" prints none.
    void SaveChart(const QList<Text>& children, const Text& message, const Text& picture = "",
                   const Text& print = "");
    /// Opens an editor on a stored chart.
    void OpenForEditing(const Text& chart);

    /// Opens one of this week's charts; the viewer is in front then.
    void OpenForFilling(const Text& chart);
    void Tick(int row);
    void Untick(int row);
    /// The row is ticked, or is not.
    void IsDone(int row, bool done, Here here = Here::current());
    /// The viewer's day and figures.
    void Page(const Text& day, const Text& points, const Text& needed, Here here = Here::current());

    /// The goal message comes with the next click.
    void ExpectGoal(const Text& picture = "");

    /// Opens the account view by the toolbar.
    void OpenAccounts();
    /// The figures of the account view.
    void Figures(const Text& name, const Text& points, const Text& goal, const Text& cost,
                 const Text& needed, Here here = Here::current());
    /// The account view stands as it does for an adult who has selected nobody.
    void NobodyIsSelected(Here here = Here::current());
    /// Promises the account selected an incentive, and returns to the account view. `file`: a stock
    /// picture. `picture`: the filled form is taken, "" for no picture.
    void Promise(const Text& incentive, const Text& cost, const Text& file, const Text& picture);
    /// Prints the list of accounts from the account view.
    void PrintAccounts();

    /// Opens the weekly review by the toolbar; no chart is chosen.
    void OpenReview(const QList<Text>& charts, Here here = Here::current());
    /// The lines of the review, and the points of the days and of the week below them.
    void Review(const QList<ReviewLine>& lines, const QList<Text>& days, const Text& points,
                Here here = Here::current());

    /// Opens the reports' form by the toolbar; no child is chosen.
    void OpenReports(const QList<Text>& children, Here here = Here::current());
    /// Chooses a child and sees what there is of it.
    void ReportsOf(const Text& child, const QList<Text>& charts, const QList<Text>& histories,
                   Here here = Here::current());
    /// Asks for a report by dates, which opens the dialog for them.
    void AskForDates(const Text& picture = "");
    /// Chooses the days in the dialog, reads its last box, and is back at the reports, which tell
    /// `message`; "" for none.
    void ChooseDates(const QDate& start, const QDate& end, const Text& message = "",
                     const Text& picture = "");

private:
    void ClickMark(const Text& mark);
};
