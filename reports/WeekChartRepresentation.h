#pragma once

#include "platform/forms/ControlRows.h"
#include "platform/forms/Form.h"
#include "reports/MatrixArrays.h"
#include "reports/MatrixGround.h"
#include "session/FormNames.h"
#include "store/FormViews.h"

#include <memory>

namespace Ui {
class WeekChartRepresentation;
}

/// The week of one chart as a table: jobs down the side, days across, with points and totals.
///
/// The controls are the matrix: the form lays out in them what the store finds in the chart that
/// is chosen, and scrolls them.
class WeekChartRepresentation : public FormWidget, public ChartMatrix {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::WeekChartRepresentation;

    WeekChartRepresentation();
    ~WeekChartRepresentation() override;

    /// The scroll bar's value at its last change.
    qint16 ScrollValue = 0;

    CellArray Job;
    CellArray Points;
    CellArray Sun;
    CellArray Mon;
    CellArray Tue;
    CellArray Wed;
    CellArray Thu;
    CellArray Fri;
    CellArray Sat;
    CellArray JobTotal;
    ControlArray<LineOutline> Patrat;
    CellArray DayTotal;

    void Begin(const QString& title) override;
    void AddJob(const QString& job) override;
    void SetJobValue(const QString& value) override;
    void SetJobTotal(qint16 points) override;
    void AddMark(int line, int day, bool completed) override;
    void AddTotals(const QString& heading) override;
    void SetGrandTotal(qint16 points) override;
    void SetDayTotal(int day, qint16 points) override;

protected:
    void Load() override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// `day`: 1 Sunday to 7 Saturday.
    CellArray& Day(int day);
    void DesignHeader();
    void DesignLines();
    void NameCells();

    /// What a line is made of.
    auto Columns() {
        return std::tie(Job, Sun, Mon, Tue, Wed, Thu, Fri, Sat, Patrat, Points, JobTotal);
    }
    void LoadLine();
    void LoadJobLine();
    void AlignWithJob(int line);
    /// How far below a line's job the next one stands, in twips.
    int LinePitch(int line) const;
    int LastLine() const;

    QString ReturnSelectedChart() const;

    void ChartList_Click();
    void VScroll_Change();

    std::unique_ptr<Ui::WeekChartRepresentation> ui_;
    /// Carries the lines, behind Picture1.
    MatrixGround* lines_ = nullptr;
    /// The first line, which is never removed, holds a job of the present chart.
    bool hasJobs_ = false;
    /// Pixels beyond the designed height, and at each side beyond the designed width.
    int spare_ = 0;
    int air_ = 0;
};
