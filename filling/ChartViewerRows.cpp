#include "filling/ChartViewer.h"

#include "filling/MouseWatch.h"
#include "filling/RowFigures.h"
#include "filling/ViewerLayout.h"
#include "platform/forms/Handlers.h"
#include "session/Session.h"
#include "ui_ChartViewer.h"
#include "widgets/FormViewAdapters.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

using namespace ViewerLayout;

namespace {

template <class Text = FittingLabel>
Text* NewText(QWidget* parent, Qt::Alignment alignment = Qt::AlignLeft) {
    auto* label = new Text(parent);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->SetForeColor(Qt::black);
    return label;
}

void Renew(FittingLabel& text) {
    text.clear();
    text.SetForeColor(Qt::black);
}

void Renew(QLabel& text) {
    text.clear();
}

void Renew(BoxOutline& outline) {
    outline.SetBorderColor(Qt::black);
}

/// A mark is named with its row's text and has nothing else of its own.
void Renew(MarkImage&) {}

} // namespace

/// Row 0, as it stands until it is first filled. All rows are in a widget that begins where the
/// list does and shows nothing outside: a page may begin above it, as far as the one before was
/// scrolled.
void ChartViewer::DesignRows() {
    QWidget* list = ui_->Rows;
    const auto design = [](auto& controls, const QString& name, int left, int width, auto make) {
        controls.Design(name, make(), {left, FirstRowTop, width, RowHeight}, make,
                        [](auto& control) { Renew(control); });
    };
    design(Number, QStringLiteral("Number"), 120, 375,
           [list] { return NewText(list, Qt::AlignRight); });
    design(Instructions, QStringLiteral("Instructions"), 840, 3855, [this, list] {
        const int index = Instructions.Count();
        auto* text = NewText<RowText>(list);
        WatchRow(*text, index);
        On(text, &RowText::Chosen, this, [this, index] {
            HighlightRow(index);
            KeepGrownFormInside();
        });
        On(text, &RowText::ReachedByTab, this, [this, index] { BringRowIntoView(index); });
        On(text, &RowText::Moved, this,
           [this, index](int step) { MoveKeyboard(index + step, false); });
        return text;
    });
    design(Difficulty, QStringLiteral("Difficulty"), 5160, 1815, [this, list] {
        auto* text = NewText<DifficultyText>(list);
        WatchRow(*text, Difficulty.Count());
        return text;
    });
    design(Points, QStringLiteral("Points"), 7680, 1215, [this, list] {
        auto* text = NewText<PointsText>(list);
        WatchRow(*text, Points.Count());
        return text;
    });
    design(AdultResponsable, QStringLiteral("AdultResponsable"), 0, 0,
           [list] { return new QLabel(list); });
    design(RectCheck, QStringLiteral("RectCheck"), 9480, 375,
           [list] { return new BoxOutline(list); });
    const auto makeMark = [this, list](bool isTick, int index, void (ChartViewer::*click)(int)) {
        auto* mark = new MarkImage(isTick, PixelsOf(ListTop), list);
        On(mark, &MarkImage::clicked, this, [this, index, click] { (this->*click)(index); });
        On(mark, &MarkImage::WantsToBeSeen, this, [this, index] { BringRowIntoView(index); });
        On(mark, &MarkImage::Moved, this,
           [this, index](int step) { MoveKeyboard(index + step, true); });
        return mark;
    };
    design(ClearImg, QStringLiteral("ClearImg"), 9480, 375, [this, makeMark] {
        return makeMark(false, ClearImg.Count(), &ChartViewer::ClearImg_Click);
    });
    design(CheckImg, QStringLiteral("CheckImg"), 9480, 375, [this, makeMark] {
        return makeMark(true, CheckImg.Count(), &ChartViewer::CheckImg_Click);
    });

    Number[0].setText(QStringLiteral("1:"));
    Instructions[0].setText(QStringLiteral("zzz"));
    Difficulty[0].setText(QStringLiteral("zzz"));
    Points[0].setText(QStringLiteral("zzz"));
    AdultResponsable[0].setText(QStringLiteral("AdultResponsable"));
    AdultResponsable.SetVisible(0, false);
    CheckImg.SetVisible(0, false);
    Number[0].setBuddy(&Instructions[0]);
    NameRow(0);
    setTabOrder(&Instructions[0], &CheckImg[0]);
    setTabOrder(&ClearImg[0], ui_->PreviousDay);
}

void ChartViewer::WatchRow(QWidget& text, int index) {
    auto* watch = new MouseWatch(&text);
    On(watch, &MouseWatch::Pressed, this, [this, index](int x, int y) {
        StoreMousePlace(x, y);
        HighlightRow(index);
    });
    On(watch, &MouseWatch::Dragged, this, [this](int x, int y) { Drag(x, y); });
    // Not before: under a pressed button nothing may move away.
    On(watch, &MouseWatch::Released, this, [this] { KeepGrownFormInside(); });
}

void ChartViewer::SetRow(int index, const ViewerRow& row) {
    Instructions[index].setText(row.Instructions);
    Difficulty[index].setText(row.Difficulty);
    Points[index].setText(row.Points);
    AdultResponsable[index].setText(row.AdultResponsable);
    const bool standsAlready = isWrittenOver_ && CheckImg.Visible(index) == row.Completed &&
                               ClearImg.Visible(index) != row.Completed;
    if (!standsAlready) {
        CheckImg.SetVisible(index, row.Completed);
        ClearImg.SetVisible(index, !row.Completed);
        CheckImg[index].lower();
        ClearImg[index].lower();
        (row.Completed ? CheckImg : ClearImg)[index].raise();
    }
    NameRow(index);
    filledRows_ = std::max(filledRows_, index + 1);
}

bool ChartViewer::CheckVisible(int index) const {
    return CheckImg.Visible(index);
}

void ChartViewer::SetDayCaption(const QString& caption) {
    ui_->DayLbl->setText(caption);
}

void ChartViewer::CreateNewTask(int index) {
    begunRows_ = index + 1;
    isWrittenOver_ = index < Instructions.Count();
    if (!isWrittenOver_) {
        MakeRow(index);
        filledRows_ = index + 1;
    }
    SetRowVisible(HidingColumns(), index, true);
}

void ChartViewer::MakeRow(int index) {
    LoadRow(Columns());
    PlaceRowBelow(PlacedColumns(), index, RowGap);
    ClearImg.SetVisible(index, true);
    Number[index].setText(QString::number(index + 1) + QLatin1Char(':'));
    if (Number[index].buddy() != &Instructions[index])
        Number[index].setBuddy(&Instructions[index]);
    NameRow(index);
    setTabOrder(&ClearImg[index - 1], &Instructions[index]);
    setTabOrder(&Instructions[index], &CheckImg[index]);
    setTabOrder(&CheckImg[index], &ClearImg[index]);
    // A change of day moves nothing by itself: the place that the user scrolled to outlasts the
    // smaller ranges that the bar passes through while the rows are made.
    const QSignalBlocker quiet(ui_->VScroll);
    ui_->VScroll->setMaximum(Instructions.Count() - 1);
    ui_->VScroll->setValue(scrollValue_);
}

void ChartViewer::RemoveRows(int first) {
    while (Instructions.Count() > first)
        UnloadLastRow(Columns());
}

void ChartViewer::ScrollTo(int value) {
    scrollValue_ = value;
    SetTextsPosition();
}

void ChartViewer::SetTextsPosition() {
    const int pitch = Instructions.Height(0) + RowGap;
    for (int row = 0; row < Instructions.Count(); ++row) {
        const int top = pitch * row + FirstRowTop - ui_->VScroll->value() * pitch;
        SetRowTop(PlacedColumns(), row, top);
        // The marks are not hidden: which of the two is visible is the mark.
        const bool shown = Instructions.Top(row) >= ListTop;
        // The keyboard stays in the row. Hiding its text would send it on as Tab does, and it would
        // have the row brought back into view.
        if (!shown && Instructions[row].hasFocus())
            VisibleMark(row).setFocus();
        SetRowVisible(HidingColumns(), row, shown);
    }
}

/// From row to row in one column, by the arrow keys.
void ChartViewer::MoveKeyboard(int index, bool toMark) {
    if (index < 0 || index >= Instructions.Count())
        return;
    // First, since a text that is scrolled away is hidden.
    BringRowIntoView(index);
    QWidget& control = toMark ? static_cast<QWidget&>(VisibleMark(index)) : Instructions[index];
    control.setFocus(Qt::TabFocusReason);
}

MarkImage& ChartViewer::VisibleMark(int index) const {
    return CheckImg.Visible(index) ? CheckImg[index] : ClearImg[index];
}

/// The keyboard may reach a row that is scrolled away.
void ChartViewer::BringRowIntoView(int index) {
    if (index >= CheckImg.Count())
        return;
    if (!IsInView(index)) {
        ui_->VScroll->setValue(CheckImg.Top(index) < ListTop ? index : index - RowsInView() + 1);
        // The bar may stand there already, left by a page with fewer rows.
        ScrollTo(ui_->VScroll->value());
    }
    ui_->ContentScroll->ensureWidgetVisible(&CheckImg[index], 0, PixelsOf(RowGap));
}

bool ChartViewer::IsInView(int index) const {
    return CheckImg.Top(index) >= ListTop && CheckImg.Top(index) + RowHeight <= ListBottom();
}

/// Nothing is scrolled: a key at a mark out of view brings it there first.
void ChartViewer::FocusFirstOpenMark() {
    int open = -1;
    for (int row = ClearImg.Count() - 1; row >= 0; --row)
        if (ClearImg.Visible(row) && (open < 0 || IsInView(row) || !IsInView(open)))
            open = row;
    QWidget& start = open < 0 ? static_cast<QWidget&>(*ui_->NextDay) : ClearImg[open];
    start.setFocus();
}

void ChartViewer::HighlightRow(int index) {
    LabelPicture picture(*ui_->Image1);
    hasGrown_ = hasGrown_ || ui_->Namelbl->isHidden();
    AllRowsBlack();
    ColourRow(index, Qt::blue);
    ShowResponsible(true);
    SetHeight(FormHeightWithResponsible);
    ui_->Namelbl->setText(AdultResponsable[index].text());
    Database().RetrevePicture(AdultResponsable[index].text(), picture);
}

void ChartViewer::KeepGrownFormInside() {
    if (std::exchange(hasGrown_, false))
        KeepInMainWindow();
    FitToRoom();
}

void ChartViewer::ColourRow(int index, const QColor& color) {
    RectCheck[index].SetBorderColor(color);
    // Colour alone does not tell everybody which row is meant.
    const bool selected = color == Qt::blue;
    Instructions[index].SetSelected(selected);
    for (FittingLabel* text : {&Number[index], static_cast<FittingLabel*>(&Instructions[index]),
                               &Difficulty[index], &Points[index]}) {
        text->SetForeColor(color);
        if (text->font().bold() != selected) {
            QFont font = text->font();
            font.setBold(selected);
            text->setFont(font);
        }
    }
}

void ChartViewer::AllRowsBlack() {
    for (int row = 0; row < Instructions.Count(); ++row)
        ColourRow(row, Qt::black);
}

void ChartViewer::ShowResponsible(bool visible) {
    ui_->Label1->setVisible(visible);
    ui_->Namelbl->setVisible(visible);
    ui_->Image1->setVisible(visible);
    ui_->Shape6->setVisible(visible);
}
