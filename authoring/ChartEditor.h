#pragma once

#include "authoring/DropDownCombo.h"
#include "authoring/InstructionsDropDown.h"
#include "platform/forms/ControlRows.h"
#include "platform/forms/Form.h"
#include "session/FormNames.h"
#include "store/FormViews.h"

#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <memory>

namespace Ui {
class ChartEditor;
}

/// First and last day of a week; both invalid if there is none.
struct ChartWeek {
    QDate First;
    QDate Last;
};

/// The form on which an adult writes a chart: one row of controls a job. The rows are the chart's
/// only copy in memory; the store reads and fills them through ChartEditorRows.
class ChartEditor final : public FormWidget, public ChartEditorRows {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::ChartEditor;

    ChartEditor();
    ~ChartEditor() override;

    /// The chart's name: for a new chart as typed, for an opened one the table's.
    QString ChartName;
    /// This form's slot in ChartEditors.
    qint16 FormIndex = 0;
    /// True: the week is computed from today; false: it is the stored one.
    bool IsNewChart = false;
    /// The child of an opened chart, "" for a new one.
    QString KidName;
    /// Which way the week is looked for from today: back to this week's start, or on to the next.
    bool NextWeek = false;
    QDate FirstDate;
    QDate LastDate;
    /// Made on first need.
    std::unique_ptr<InstructionsDropDown> JobNameList;
    /// The entry last chosen in the job list of any row.
    qint16 LastListIndex = 0;

    ControlArray<QLabel> Number;
    ControlArray<DropDownCombo> Instructions;
    ControlArray<DropDownCombo> DayOfWeek;
    ControlArray<QLineEdit> AdultResponsable;
    ControlArray<DropDownCombo> Difficulty;
    ControlArray<QLineEdit> Points;
    ControlArray<QPushButton> JobDelete;

    /// The controls that other forms touch. Touching one loads the form.
    QLabel& StartingFrom();
    QPushButton& ResetTime();
    QPushButton& DeleteChart();
    /// What holds the controls of all rows.
    QWidget& Rows();

    /// Adds one row at the end, below the last one, wherever that is scrolled to. Its day list is
    /// the caller's to fill.
    void CreateNewTask();
    /// Lays all rows out for the place of the scroll bar.
    void SetTextsPosition();
    /// Adds the difficulties to a row's list, which is not cleared first.
    void FillDifficultyList(int Index);
    /// Replaces a row's day list by that of "School" or "Home"; any other mode empties it.
    void FillDayList(int Index, const QString& Mode);
    void FillAllDayLists();
    /// The week from its start day at or before today, or with `nextWeek` at or after today. On
    /// the start day itself both are the week that starts today. Raises 13 where the system's
    /// weekday names are not English.
    ChartWeek ChartWeekDates(bool nextWeek) const;
    /// Settles FirstDate and LastDate and tells them in words. "" for a mode that is neither
    /// "School" nor "Home".
    QString Title(const QString& Mode);

    int RowCount() const override { return Instructions.Count(); }
    EditorRow Row(int index) const override;
    void SetRow(int index, const EditorRow& row) override;
    void NewTask_Click() override;

    /// Ends a form that could not be opened, without the question.
    void Abandon();

protected:
    void Load() override;
    bool QueryUnload() override;
    void Unloaded() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A row whose controls nobody has seen or touched yet.
    struct WaitingRow {
        EditorRow Texts;
        QString DayListMode;
    };

    void DesignRows();
    DropDownCombo* MakeCombo(const QString& column, int index);
    QLineEdit* MakeBox(const QString& column, int index);
    QPushButton* MakeDelete(int index);
    DropDownCombo* MakeInstructions(int index);
    QLineEdit* MakePoints(int index);
    /// What a row is made of.
    auto Columns() {
        return std::tie(Instructions, DayOfWeek, AdultResponsable, Difficulty, Points, JobDelete,
                        Number);
    }
    /// The rows that have controls; those that wait come behind them.
    int MadeRows() const { return Instructions.Count() - static_cast<int>(waiting_.size()); }
    bool IsWaiting(int index) const { return index >= MadeRows() && index < RowCount(); }
    std::size_t PlaceAmongWaiting(int index) const { return std::size_t(index - MadeRows()); }
    void MakeRows(int last);
    void MakeRowsInSight();
    int ListBottom() const;
    void PutRowInTabOrder(int index);
    void FitListToFrame();
    int FocusedRow();
    bool MoveByTab(bool next);
    void BringRowIntoView(int index);

    void AddJob();
    void JobDelete_Click(int index);
    /// What may stand in the box of the points.
    static bool IsPoints(const QString& text);
    void Points_Change(int index);
    void Instructions_DropDown(int index);
    void Instructions_Enter(int index);
    void CreateChart_Click();
    void Print_Click();
    void ResetTime_Click();
    void DeleteChart_Click();

    InstructionsDropDown& JobNames();

    std::unique_ptr<Ui::ChartEditor> ui_;
    /// Of a long chart most rows are scrolled away: to make their controls takes longer than all
    /// else of its opening. They are made when nothing else is to be done.
    std::deque<WaitingRow> waiting_;
    QTimer nothingElse_;
    bool hasBegun_ = false;
};
