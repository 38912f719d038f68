#pragma once

#include "filling/BoxOutline.h"
#include "filling/MarkImage.h"
#include "filling/RowText.h"
#include "platform/forms/ControlRows.h"
#include "platform/forms/Form.h"
#include "session/FormNames.h"
#include "store/FormViews.h"
#include "widgets/FittingLabel.h"

#include <QColor>
#include <QLabel>
#include <QTimer>
#include <memory>

namespace Ui {
class ChartViewer;
}

/// Where a child works through a chart: one day at a time, one row a job, with a box to tick.
///
/// The row controls are the data: the store fills them and reads the marks back from them. Every
/// activation stores the marks and moves on to the next day with jobs.
class ChartViewer : public FormWidget, public ChartViewerRows {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::ChartViewer;

    ChartViewer();
    ~ChartViewer() override;

    /// The chart table shown, and this form's slot in ChartViewers.
    QString ChartName;
    qint16 FormIndex = 0;
    /// The day on display, 1 Sunday to 7 Saturday; at first the day before today.
    qint16 DayNumber = 0;
    /// Where the mouse went down, in twips of the control under it.
    qint16 MouseX = 0;
    qint16 MouseY = 0;
    /// The points that the incentive costs; 0 once the goal message has been shown.
    qint16 GoalPoints = 0;

    ControlArray<FittingLabel> Number;
    ControlArray<RowText> Instructions;
    ControlArray<FittingLabel> Difficulty;
    ControlArray<FittingLabel> Points;
    /// Never shown: holds the name of the row's adult.
    ControlArray<QLabel> AdultResponsable;
    ControlArray<BoxOutline> RectCheck;
    /// The two pictures of a mark; exactly one of them is visible. CheckImg's flag is the mark.
    ControlArray<MarkImage> ClearImg;
    ControlArray<MarkImage> CheckImg;

    /// Puts the shown form at the top of the main window, in its middle.
    void PlaceInMainWindow();

    void SetRow(int index, const ViewerRow& row) override;
    bool CheckVisible(int index) const override;
    void CreateNewTask(int index) override;
    void SetDayCaption(const QString& caption) override;

    /// Puts all rows where the scroll bar says.
    void SetTextsPosition();
    /// Unloads all rows but row 0, or those from `first` on.
    void RemoveRows(int first = 1);
    /// Marks a row in blue and shows its adult below the list.
    void HighlightRow(int index);

    /// Ends a form whose chart could not be read; nothing of it is stored.
    void Abandon();

    /// Store the marks and go to the next or the former day with jobs, round the week. A chart
    /// without any day has none: the search goes on for ever.
    void NextDay_Click();
    void PreviousDay_Click();

protected:
    void Activate() override;
    void Unloaded() override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What a row is made of.
    auto Columns() {
        return std::tie(Instructions, Difficulty, Points, AdultResponsable, CheckImg, ClearImg,
                        RectCheck, Number);
    }
    /// What of it has a place in the list.
    auto PlacedColumns() {
        return std::tie(Instructions, Difficulty, Points, Number, RectCheck, CheckImg, ClearImg);
    }
    /// What is hidden where the row is scrolled away.
    auto HidingColumns() { return std::tie(Instructions, Difficulty, Points, RectCheck, Number); }
    void DesignRows();
    void WatchRow(QWidget& text, int index);
    void WatchMouseOn(QWidget& widget);
    void StoreMousePlace(int x, int y);
    void Drag(int x, int y);
    void ColourRow(int index, const QColor& color);
    void AllRowsBlack();
    void ShowResponsible(bool visible);
    /// Once for each time that a row's adult has made the form higher.
    void KeepGrownFormInside();
    void NameRow(int index);
    void MoveKeyboard(int index, bool toMark);
    MarkImage& VisibleMark(int index) const;
    void BringRowIntoView(int index);
    bool IsInView(int index) const;
    void FocusFirstOpenMark();
    int HeightOutOfView() const;
    void FitToRoom();
    void SetListHeight(int pixels);
    int ListBottom() const;
    int RowsInView() const;
    void ScrollTo(int value);

    void StoreMarks();
    void TurnPage(int step);
    void TellDay();
    void ExchangeRows(int step);
    void ShowWeek();
    bool AreRowsInUse() const;
    void MakeRow(int index);

    void ClearImg_Click(int index);
    void CheckImg_Click(int index);
    void MoveMark(ControlArray<MarkImage>& from, ControlArray<MarkImage>& to, int index);
    void ShowPoints(const QString& points);
    void Flip(ControlArray<MarkImage>& from, ControlArray<MarkImage>& to, int index);
    qint16 PointsOf(int index) const;
    void ShowPointsNeeded();
    void ShowPointsAndGoal();

    void Ok_Click();
    void Command1_Click();

    std::unique_ptr<Ui::ChartViewer> ui_;
    int scrollValue_ = 0;
    bool hasGrown_ = false;
    QTimer fitLater_;
    /// Rows of the page that is being made; those behind them are left from the page before.
    int filledRows_ = 1;
    /// The filled ones, and one more while it waits to be filled.
    int begunRows_ = 1;
    /// The row begun last stands as the page before left it.
    bool isWrittenOver_ = false;
};
