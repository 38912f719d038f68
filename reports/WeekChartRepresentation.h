#pragma once

#include "platform/forms/Form.h"
#include "reports/LineOutline.h"
#include "reports/MatrixArrays.h"
#include "session/FormNames.h"
#include "store/FormViews.h"
#include "widgets/FormViewAdapters.h"

#include <memory>

namespace Ui {
class WeekChartRepresentation;
}

/// The week of one chart as a table: jobs down the side, days across, with points and totals.
///
/// The controls are the matrix: the store fills them for the chart that is chosen, and the form
/// scrolls them.
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
    MatrixArray<LineOutline, MatrixControls> Patrat;
    CellArray DayTotal;

    CaptionTarget& Title() override { return *title_; }
    MatrixLabels& Jobs() override { return Job; }
    MatrixLabels& Values() override { return Points; }
    MatrixLabels& Cells(int day) override { return Day(day); }
    MatrixLabels& JobTotals() override { return JobTotal; }
    MatrixControls& Outlines() override { return Patrat; }
    MatrixLabels& DayTotals() override { return DayTotal; }

protected:
    void Load() override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// `day`: 1 Sunday to 7 Saturday.
    CellArray& Day(int day);
    void DesignHeader();
    void DesignLines();
    void NameCells();
    QString ReturnSelectedChart() const;

    void ChartList_Click();
    void VScroll_Change();

    std::unique_ptr<Ui::WeekChartRepresentation> ui_;
    std::unique_ptr<LabelCaption> title_;
    /// Carries the lines, behind Picture1.
    QWidget* lines_ = nullptr;
};
