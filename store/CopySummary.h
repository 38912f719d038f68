#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// What a database holds, in numbers that a parent knows.
struct CopySummary {
    struct Child {
        QString Name;
        int Points = 0;
    };

    /// Why nothing could be read, in the engine's words; "" if it could.
    QString Fault;
    /// The names of all accounts, and the children among them.
    QStringList Accounts;
    QList<Child> Children;
    QStringList Charts;
    int PastWeeks = 0;
};

/// Looks through a database file and writes nothing. Raises nothing.
CopySummary SummaryOf(const QString& databaseFile);

/// What is otherwise in a copy than now: "3 charts fewer, Max has 40 points more"; "" if nothing
/// in these numbers is.
QString DifferenceOf(const CopySummary& copy, const CopySummary& now);

/// "1 chart", "3 charts".
QString Counted(qsizetype count, const QString& one, const QString& many);
