#include "filling/ChartViewer.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "support/SoundFunctions.h"
#include "ui_ChartViewer.h"
#include "widgets/FormViewAdapters.h"

#include <QAccessible>
#include <QPointer>

/// A screen reader says which job a mark belongs to, and with the job what the row says of it.
void ChartViewer::NameRow(int index) {
    const QString job =
        QStringLiteral("Job %1: %2").arg(QString::number(index + 1), Instructions[index].text());
    ClearImg[index].setAccessibleName(job);
    CheckImg[index].setAccessibleName(job);
    Instructions[index].setAccessibleName(job);
    Instructions[index].setAccessibleDescription(
        QStringLiteral("%1, %2 points. Space shows who is responsible.")
            .arg(Difficulty[index].text(), Points[index].text()));
}

// Points move at once; the mark reaches the table at the next change of day or at Ok. The mark is
// flipped first and stays so, also if the account's points refuse to follow. It returns if a fault
// keeps them from being stored.
void ChartViewer::ClearImg_Click(int index) {
    MoveMark(ClearImg, CheckImg, index);
    CheckImg[index].PopIn();
    Database().AddPoints(CurrentUser, PointsOf(index), false);
    ShowPointsAndGoal();
}

void ChartViewer::CheckImg_Click(int index) {
    MoveMark(CheckImg, ClearImg, index);
    Database().AddPoints(CurrentUser, ToInteger(-PointsOf(index)), false);
    ShowPointsAndGoal();
}

void ChartViewer::MoveMark(ControlArray<MarkImage>& from, ControlArray<MarkImage>& to, int index) {
    Flip(from, to, index);
    IfUndone([viewer = QPointer(this), &from, &to, index, points = ui_->Label3->text()] {
        if (viewer.isNull() || index >= to.Count())
            return;
        viewer->Flip(to, from, index);
        viewer->ShowPoints(points);
    });
}

void ChartViewer::Flip(ControlArray<MarkImage>& from, ControlArray<MarkImage>& to, int index) {
    const bool hadKeyboard = from[index].hasFocus();
    // Hiding a control with the keyboard would hand it to the next row.
    from[index].clearFocus();
    from.SetVisible(index, false);
    to.SetVisible(index, true);
    to[index].raise();
    if (hadKeyboard)
        to[index].setFocus();
    QAccessible::State change;
    change.checked = true;
    QAccessibleStateChangeEvent told(&to[index], change);
    QAccessible::updateAccessibility(&told);
}

qint16 ChartViewer::PointsOf(int index) const {
    return ToInteger(Val(Points[index].text()));
}

void ChartViewer::ShowPointsNeeded() {
    const double needed = GoalPoints - Val(ui_->Label3->text());
    ui_->Label5->setText(needed <= 0 ? QStringLiteral("0") : NumberText(needed));
}

void ChartViewer::ShowPoints(const QString& points) {
    ui_->Label3->setText(points);
    ShowPointsNeeded();
    ui_->WayToGoal->WalkTo(Val(points));
}

void ChartViewer::ShowPointsAndGoal() {
    LabelCaption pointsLabel(*ui_->Label3);
    Database().RetrievePoints(CurrentUser, pointsLabel);
    ShowPoints(ui_->Label3->text());
    if (GoalPoints != 0 && Val(ui_->Label3->text()) > GoalPoints) {
        Tell(QStringLiteral(
            "Your goal has been reached, check with your parent to receive your reward."));
        GoalPoints = 0;
    }
    PlaySoundEffect(QStringLiteral("DrawCard"));
}
