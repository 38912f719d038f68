#pragma once

#include "session/Session.h"
#include "tests/common/Entries.h"

#include <QList>
#include <array>

/// The weekly review without a form; the store reaches it while it lives. What it was given
/// stands in it line by line, the totals last; "" for what has not come.
class FakeMatrix : public ChartMatrix {
public:
    FakeMatrix() {
        WeeklyReview = [this]() -> ChartMatrix& { return *this; };
    }
    ~FakeMatrix() override { WeeklyReview = {}; }
    FakeMatrix(const FakeMatrix&) = delete;
    FakeMatrix& operator=(const FakeMatrix&) = delete;

    /// From Sunday to Saturday: "-" not scheduled, "o" open, else how often it was done.
    using Week = std::array<QString, 7>;

    QString title = QStringLiteral("as it was");
    QStringList jobs;
    QStringList values;
    QStringList jobTotals;
    QList<Week> cells;
    QStringList dayTotals = QStringList(7, QString());

    void Begin(const QString& text) override {
        title = text;
        jobs.clear();
        values.clear();
        jobTotals.clear();
        cells.clear();
    }
    void AddJob(const QString& job) override {
        jobs += job;
        values += QString();
        jobTotals += QString();
        Week week;
        week.fill(QStringLiteral("-"));
        cells += week;
    }
    void SetJobValue(const QString& value) override { LastOf(values) = value; }
    void SetJobTotal(qint16 points) override { LastOf(jobTotals) = QString::number(points); }
    void AddMark(int line, int day, bool completed) override {
        QString& cell = EntryOf(cells, line).at(static_cast<std::size_t>(day - 1));
        if (completed)
            cell = QString::number(cell.toInt() + 1);
        else if (cell == QLatin1String("-"))
            cell = QStringLiteral("o");
    }
    void AddTotals(const QString& heading) override {
        jobs += heading;
        values += QString();
    }
    void SetGrandTotal(qint16 points) override { LastOf(values) = QString::number(points); }
    void SetDayTotal(int day, qint16 points) override {
        EntryOf(dayTotals, day - 1) = QString::number(points);
    }
};
