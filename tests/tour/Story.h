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

    /// Opens an editor on a new chart.
    void BeginChart(const Text& name);
    /// Fills a row of the editor; the one behind the last is added first.
    void WriteJob(int row, const Job& job);
    /// Saves the editor's chart for these children, and reads the message that comes then.
    void SaveChart(const QList<Text>& children, const Text& message, const Text& picture = "");
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
};
