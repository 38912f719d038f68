#include "authoring/ChartEditor.h"

#include "authoring/ComboLists.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/ResetDate.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/Hourglass.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "store/TableNames.h"
#include "ui_ChartEditor.h"

void ChartEditor::NewTask_Click() {
    CreateNewTask();
    if (const QString mode = Version::NameOf(SchoolMode); !mode.isEmpty())
        FillDayList(DayOfWeek.Count() - 1, mode);
}

/// Who asks for a job goes on in its row.
void ChartEditor::AddJob() {
    NewTask_Click();
    const int row = RowCount() - 1;
    BringRowIntoView(row);
    Instructions[row].setFocus(Qt::OtherFocusReason);
}

void ChartEditor::JobDelete_Click(int index) {
    const int last = JobDelete.Count() - 1;
    if (last == 0) {
        if (AskBeforeLoss(QStringLiteral("Are you sure you want to delete the entire chart?")) &&
            Database().ChartExist(ChartName)) {
            Database().DeleteChart(ChartName);
            Unload();
        }
        return;
    }
    for (int row = index; row < last; ++row)
        SetRow(row, Row(row + 1));
    UnloadLastRow(Columns());
    if (!waiting_.empty())
        waiting_.pop_back();
}

bool ChartEditor::IsPoints(const QString& text) {
    return text.isEmpty() || text == QLatin1String("0") || Val(text) != 0;
}

void ChartEditor::Points_Change(int index) {
    if (IsPoints(Points[index].text()))
        return;
    Tell(QStringLiteral("That is not a valid number, please enter a number"));
    Points[index].setText(QString());
}

InstructionsDropDown& ChartEditor::JobNames() {
    if (!JobNameList)
        JobNameList = std::make_unique<InstructionsDropDown>();
    return *JobNameList;
}

void ChartEditor::Instructions_DropDown(int index) {
    JobNames().ReceveInstructions(Instructions[index]);
}

void ChartEditor::Instructions_Enter(int index) {
    DropDownCombo& combo = Instructions[index];
    JobNames().ReceveInstructions(combo);
    {
        const KeptText kept(combo);
        const QString old = combo.itemText(LastListIndex);
        if (old == kept.Text() || kept.Text().isEmpty())
            combo.removeItem(LastListIndex);
        // The file may have become shorter since the entry was chosen: the text goes to the end.
        combo.insertItem(LastListIndex, kept.Text());
    }
    JobNames().AddInstructions(combo);
}

void ChartEditor::CreateChart_Click() {
    for (int index = 0; index < Instructions.Count(); ++index)
        Instructions_Enter(index);
    auto& people = Default<DisplayAllPeople>();
    people.ChartName = ChartName;
    people.FormIndex = FormIndex;
    people.FirstDate = FirstDate;
    people.LastDate = LastDate;
    people.AutoCreate = ui_->AutoCreatechk->isChecked();
    Hide();
    people.Show();
}

void ChartEditor::Print_Click() {
    const Hourglass hourglass(*this);
    Database().WriteInfoToChart(PrintedTable, FormIndex, false, PrintedTable, FirstDate, LastDate,
                                false);
    // KidName is "" for a chart that is no child's yet.
    Database().PrintChart(PrintedTable, true, KidName, QString(), ChartName);
}

void ChartEditor::ResetTime_Click() {
    const QString today = DateKey(Today());
    const QString first = DateKey(FirstDate);
    const QString last = DateKey(LastDate);
    auto& reset = Default<ResetDate>();
    reset.FormIndex = FormIndex;
    reset.OutsideChartWeek = today < first || today > last;
    reset.ChartName = ChartName;
    reset.Show();
}

void ChartEditor::DeleteChart_Click() {
    auto& confirm = Default<DeleteChartForm>();
    confirm.ChartName = ChartName;
    confirm.FormIndex = FormIndex;
    confirm.Show();
}

void ChartEditor::Abandon() {
    if (!IsUnloaded())
        Drop();
}

bool ChartEditor::QueryUnload() {
    return AskBeforeLoss(QStringLiteral("Are you sure you want to exit without saving?"));
}

void ChartEditor::Unloaded() {
    ChartEditors.Forget(this);
}
