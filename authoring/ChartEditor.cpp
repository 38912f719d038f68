#include "authoring/ChartEditor.h"

#include "authoring/ComboLists.h"
#include "authoring/ListFrame.h"
#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/DayTexts.h"
#include "store/DifficultyTexts.h"
#include "support/DateCls.h"
#include "ui_ChartEditor.h"
#include "widgets/ElidingEdit.h"
#include "widgets/FocusRing.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStringList>
#include <algorithm>
#include <utility>

namespace {

// Geometry of the rows within the frame, in twips.
constexpr int RowHeight = 330;
constexpr int RowGap = 50;
constexpr int ListTop = TwipsOf(ListFrame::BandBottom);
constexpr int FrameHeight = 5055;

TwipRect Column(int left, int width) {
    return {left, ListTop + RowGap, width, RowHeight};
}

QStringList DaysOfMode(const QString& mode) {
    if (mode == Version::SchoolName)
        return DaysOf(MondayToFriday) + QStringList{MondayToFriday};
    if (mode == Version::HomeName)
        return DaysOf(SundayToSaturday) + QStringList{MondayToFriday, SundayToSaturday};
    return {};
}

} // namespace

ChartEditor::ChartEditor()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::ChartEditor>()) {
    ui_->setupUi(this);
    DesignRows();
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    new FocusRing(ui_->VScroll);

    // No action of a user: it stores nothing.
    connect(&nothingElse_, &QTimer::timeout, this, [this] {
        MakeRows(std::min(MadeRows(), RowCount() - 1));
        if (waiting_.empty())
            nothingElse_.stop();
    });

    On(ui_->VScroll, &QScrollBar::valueChanged, this, [this] { SetTextsPosition(); });
    On(ui_->NewTask, &QPushButton::clicked, this, [this] { AddJob(); });
    On(ui_->CreateChart, &QPushButton::clicked, this, [this] { CreateChart_Click(); });
    On(ui_->Print, &QPushButton::clicked, this, [this] { Print_Click(); });
    On(ui_->ResetTime, &QPushButton::clicked, this, [this] { ResetTime_Click(); });
    On(ui_->DeleteChart, &QPushButton::clicked, this, [this] { DeleteChart_Click(); });
    On(ui_->Close, &QPushButton::clicked, this, [this] { Unload(); });
}

ChartEditor::~ChartEditor() = default;

void ChartEditor::DesignRows() {
    Instructions.Design(QStringLiteral("Instructions"), MakeInstructions(0), Column(600, 2655),
                        [this] { return MakeInstructions(MadeRows()); });
    const QString day = QStringLiteral("DayOfWeek");
    const QString dayName = ui_->DayOfWeeklbl->text();
    DayOfWeek.Design(day, MakeCombo(dayName, 0), Column(3360, 1695),
                     [this, dayName] { return MakeCombo(dayName, MadeRows()); });
    const QString adult = QStringLiteral("AdultResponsable");
    const QString adultName = ui_->AdultResponsablelbl->text();
    AdultResponsable.Design(adult, MakeBox(adultName, 0), Column(5160, 2535),
                            [this, adultName] { return MakeBox(adultName, MadeRows()); });
    const QString difficultyName = ui_->difficultylbl->text();
    Difficulty.Design(QStringLiteral("Difficulty"), MakeCombo(difficultyName, 0),
                      Column(7800, 1575),
                      [this, difficultyName] { return MakeCombo(difficultyName, MadeRows()); });
    Points.Design(QStringLiteral("Points"), MakePoints(0), Column(9480, 1335),
                  [this] { return MakePoints(MadeRows()); });
    JobDelete.Design(QStringLiteral("JobDelete"), MakeDelete(0), Column(10920, 975),
                     [this] { return MakeDelete(MadeRows()); });
    const auto makeNumber = [this] {
        auto* label = new QLabel(ui_->Rows);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        return label;
    };
    Number.Design(QStringLiteral("Number"), makeNumber(), Column(120, 375), makeNumber);
    ForEachColumn(Columns(), [this](auto& column) {
        column.KeepPromisesBy([this](int index) { MakeRows(index); });
    });
    Number[0].setText(QStringLiteral("1:"));

    // The first row stands in the order of the keyboard as it was made.
    QWidget::setTabOrder(&JobDelete[0], ui_->VScroll);
    Number[0].setBuddy(&Instructions[0]);
}

/// Any row but the first.
void ChartEditor::PutRowInTabOrder(int index) {
    QWidget::setTabOrder(&JobDelete[index - 1], &Instructions[index]);
    QWidget::setTabOrder(&Instructions[index], &DayOfWeek[index]);
    QWidget::setTabOrder(&DayOfWeek[index], &AdultResponsable[index]);
    QWidget::setTabOrder(&AdultResponsable[index], &Difficulty[index]);
    QWidget::setTabOrder(&Difficulty[index], &Points[index]);
    QWidget::setTabOrder(&Points[index], &JobDelete[index]);
}

/// The row that has the form's keyboard, -1 if none has it.
int ChartEditor::FocusedRow() {
    const QWidget* focus = focusWidget();
    for (int index = 0; index < MadeRows(); ++index) {
        bool isHere = false;
        ForEachColumn(Columns(), [&](auto& column) { isHere = isHere || &column[index] == focus; });
        if (isHere)
            return index;
    }
    return -1;
}

/// The keyboard goes through all rows, those outside the frame too.
bool ChartEditor::MoveByTab(bool next) {
    // The row above the top line is hidden and would be passed over.
    const int row = FocusedRow();
    if (!next && row > 0 && focusWidget() == &Instructions[row])
        BringRowIntoView(row - 1);
    // So would a row that waits for its controls: the next one, or the last one before the bar.
    if (next || focusWidget() == ui_->VScroll)
        MakeRows(std::min(next ? row + 1 : RowCount(), RowCount() - 1));
    if (!focusNextPrevChild(next))
        return false;
    if (const int reached = FocusedRow(); reached >= 0)
        BringRowIntoView(reached);
    return true;
}

void ChartEditor::BringRowIntoView(int index) {
    const int pitch = Instructions.Height(0) + RowGap;
    const int rowsInView = std::max(1, (ListBottom() - ListTop) / pitch);
    if (Instructions.Top(index) < ListTop)
        ui_->VScroll->setValue(index);
    else if (Instructions.Top(index) + RowHeight > ListBottom())
        ui_->VScroll->setValue(index - rowsInView + 1);
}

/// Where the last row in sight ends, in twips.
int ChartEditor::ListBottom() const {
    return TwipsOf(ui_->RowsClip->geometry().bottom());
}

DropDownCombo* ChartEditor::MakeCombo(const QString& column, int index) {
    auto* combo = new DropDownCombo(ui_->Rows);
    combo->SetSpokenName(QStringLiteral("%1, job %2").arg(column).arg(index + 1));
    combo->installEventFilter(this);
    On(new EnterKey(combo), &EnterKey::Pressed, this, [this] { AddJob(); });
    return combo;
}

QLineEdit* ChartEditor::MakeBox(const QString& column, int index) {
    auto* box = new ElidingEdit(ui_->Rows);
    box->setAccessibleName(QStringLiteral("%1, job %2").arg(column).arg(index + 1));
    box->installEventFilter(this);
    On(new EnterKey(box), &EnterKey::Pressed, this, [this] { AddJob(); });
    return box;
}

QLineEdit* ChartEditor::MakePoints(int index) {
    QLineEdit* box = MakeBox(ui_->Pointslbl->text(), index);
    On(box, &QLineEdit::textChanged, this, [this, index] { Points_Change(index); });
    return box;
}

DropDownCombo* ChartEditor::MakeInstructions(int index) {
    auto* combo = new DropDownCombo(ui_->Rows);
    combo->SetSpokenName(
        QStringLiteral("%1, job %2").arg(ui_->InstructionsLbl->text()).arg(index + 1));
    combo->installEventFilter(this);
    On(combo, &DropDownCombo::AboutToDrop, this, [this, index] { Instructions_DropDown(index); });
    On(combo, &QComboBox::activated, this, [this](int entry) { LastListIndex = ToInteger(entry); });
    On(new EnterKey(combo), &EnterKey::Pressed, this, [this, index] { Instructions_Enter(index); });
    return combo;
}

QPushButton* ChartEditor::MakeDelete(int index) {
    auto* button = new QPushButton(QStringLiteral("Delete"), ui_->Rows);
    button->setAccessibleName(QStringLiteral("Delete job %1").arg(index + 1));
    button->installEventFilter(this);
    button->setAutoDefault(true);
    On(button, &QPushButton::clicked, this, [this, index] { JobDelete_Click(index); });
    return button;
}

QLabel& ChartEditor::StartingFrom() {
    EnsureLoaded();
    return *ui_->StartingFrom;
}

QPushButton& ChartEditor::ResetTime() {
    EnsureLoaded();
    return *ui_->ResetTime;
}

QPushButton& ChartEditor::DeleteChart() {
    EnsureLoaded();
    return *ui_->DeleteChart;
}

QWidget& ChartEditor::Rows() {
    return *ui_->Rows;
}

void ChartEditor::Load() {
    DayOfWeek[0].clear();
    Difficulty[0].clear();
    ui_->StartingFrom->setText(Title(Version::HomeName));
    // A new chart's name stands in the title, and it is nobody's yet.
    if (!IsNewChart)
        ui_->Whose->setText(KidName.trimmed().isEmpty()
                                ? ChartName
                                : QStringLiteral("%1, for %2").arg(ChartName, KidName));
    AdultResponsable[0].setText(CurrentUser);
    FillAllDayLists();
    FillDifficultyList(0);
    ui_->AutoCreatechk->setChecked(IsNewChart || Database().ReturnAutoCreate(ChartName));
}

void ChartEditor::CreateNewTask() {
    const qint16 index = ToInteger(Instructions.Count());
    PromiseRow(Columns());
    PlaceRowBelow(Columns(), index, RowGap);
    SetRowVisible(Columns(), index, true);
    WaitingRow row;
    row.Texts.AdultResponsable = CurrentUser;
    waiting_.push_back(row);
    ui_->VScroll->setMaximum(Instructions.Count() - 1);
    MakeRowsInSight();
}

/// Makes the controls of the rows up to this one: each stands behind the former one in the order of
/// the keyboard.
void ChartEditor::MakeRows(int last) {
    while (MadeRows() <= last) {
        const int index = MadeRows();
        MakeRow(Columns(), index);
        const WaitingRow row = std::move(waiting_.front());
        waiting_.pop_front();
        FillDifficultyList(index);
        FillDayList(index, row.DayListMode);
        Number[index].setText(QStringLiteral("%1:").arg(index + 1));
        Number[index].setBuddy(&Instructions[index]);
        PutRowInTabOrder(index);
        SetRow(index, row.Texts);
    }
}

void ChartEditor::MakeRowsInSight() {
    while (!waiting_.empty() && Instructions.Top(MadeRows()) < ListBottom())
        MakeRows(MadeRows());
    if (!waiting_.empty())
        nothingElse_.start();
}

void ChartEditor::SetTextsPosition() {
    const int pitch = Instructions.Height(0) + RowGap;
    const int value = ui_->VScroll->value();
    // A row that is hidden cannot keep the keyboard, and the toolkit would hand it to the next
    // control by itself: to the bar instead, not into another job.
    if (const int row = FocusedRow(); row >= 0 && row < value)
        ui_->VScroll->setFocus(Qt::OtherFocusReason);
    for (int index = 0; index < Instructions.Count(); ++index) {
        const int top = pitch * (index - value) + ListTop + RowGap;
        SetRowTop(Columns(), index, top);
        SetRowVisible(Columns(), index, top >= ListTop);
    }
    MakeRowsInSight();
}

void ChartEditor::FillDifficultyList(int Index) {
    DropDownCombo& combo = Difficulty[Index];
    const KeptText kept(combo);
    combo.addItems(DifficultyTexts);
}

void ChartEditor::FillDayList(int Index, const QString& Mode) {
    if (IsWaiting(Index)) {
        waiting_[PlaceAmongWaiting(Index)].DayListMode = Mode;
        return;
    }
    DropDownCombo& combo = DayOfWeek[Index];
    const KeptText kept(combo);
    combo.clear();
    combo.addItems(DaysOfMode(Mode));
}

void ChartEditor::FillAllDayLists() {
    const QString mode = Version::NameOf(SchoolMode);
    if (mode.isEmpty())
        return;
    for (int index = 0; index < DayOfWeek.Count(); ++index)
        FillDayList(index, mode);
}

ChartWeek ChartEditor::ChartWeekDates(bool nextWeek) const {
    QStringList days;
    if (Version::IsSchool(SchoolMode))
        days = DaysOf(MondayToFriday);
    else if (Version::IsHome(SchoolMode))
        days = DaysOf(SundayToSaturday);
    else
        return {};
    const QString startDay = FullDayName(days.first());
    DateCls date;
    for (int step = 0; WeekdayName(date.Value()) != startDay; ++step) {
        // With names in which none is ever the start day's the walk would not end.
        if (step == DaysOfWeek)
            throw RuntimeError(ErrorNumber::TypeMismatch,
                               QStringLiteral("No day of the week is called %1").arg(startDay));
        if (nextWeek)
            date.Add(1, DateUnits::Days);
        else
            date.Subtract(1, DateUnits::Days);
    }
    const QDate first = date.Value();
    date.Add(static_cast<qint16>(days.size() - 1), DateUnits::Days);
    return {first, date.Value()};
}

QString ChartEditor::Title(const QString& Mode) {
    if (!IsNewChart)
        Database().ReadDates(ChartName);
    // A chart without rows leaves the dates of the chart read before it. There may be none.
    if (IsNewChart || Database().FirstDateText.isEmpty()) {
        FirstDate = ChartWeekDates(NextWeek).First;
        LastDate = ChartWeekDates(NextWeek).Last;
    } else {
        FirstDate = DateFromText(Database().FirstDateText);
        LastDate = DateFromText(Database().LastDateText);
    }
    if (Mode != Version::SchoolName && Mode != Version::HomeName)
        return {};
    const QLatin1Char blank(' ');
    return QLatin1String("Starting from: ") + WeekdayName(FirstDate) + blank + DateText(FirstDate) +
           QLatin1String(" to ") + WeekdayName(LastDate) + blank + DateText(LastDate);
}

EditorRow ChartEditor::Row(int index) const {
    if (IsWaiting(index))
        return waiting_[PlaceAmongWaiting(index)].Texts;
    return {Instructions[index].Text(), DayOfWeek[index].Text(), AdultResponsable[index].text(),
            Difficulty[index].Text(), Points[index].text()};
}

void ChartEditor::SetRow(int index, const EditorRow& row) {
    // Points that are refused are so at once.
    if (IsWaiting(index) && IsPoints(row.Points)) {
        waiting_[PlaceAmongWaiting(index)].Texts = row;
        return;
    }
    Instructions[index].SetText(row.Instructions);
    DayOfWeek[index].SetText(row.DayOfWeek);
    AdultResponsable[index].setText(row.AdultResponsable);
    AdultResponsable[index].setCursorPosition(0);
    Difficulty[index].SetText(row.Difficulty);
    Points[index].setText(row.Points);
}

void ChartEditor::showEvent(QShowEvent* event) {
    FormWidget::showEvent(event);
    // What an adult comes for, not the scroll bar that was there before the rows. Not before: the
    // frame that the form comes in would hand the keyboard out anew.
    if (!std::exchange(hasBegun_, true))
        Instructions[0].setFocus();
}

/// A form higher than it was made shows more rows.
void ChartEditor::resizeEvent(QResizeEvent* event) {
    FormWidget::resizeEvent(event);
    ListFrame& frame = *ui_->EditChartFrame;
    const int rest = sizeHint().height() - frame.sizeHint().height();
    frame.setMaximumHeight(std::max(PixelsOf(FrameHeight), height() - rest));
}

/// Where the main window has no room for the whole frame it shows fewer rows; the rest is reached
/// by the scroll bar.
void ChartEditor::FitListToFrame() {
    const int bottom = ui_->EditChartFrame->height();
    ui_->Rows->resize(ui_->Rows->width(), std::max(PixelsOf(FrameHeight), bottom));
    ui_->RowsClip->resize(ui_->RowsClip->width(), bottom - ui_->RowsClip->y() - 2);
    ui_->VScroll->resize(ui_->VScroll->width(), bottom - ui_->VScroll->y() - 6);
    MakeRowsInSight();
}

bool ChartEditor::eventFilter(QObject* watched, QEvent* event) {
    // The wheel over the rows scrolls them, as it does over the scroll bar itself.
    if (watched == ui_->EditChartFrame && event->type() == QEvent::Wheel)
        return QCoreApplication::sendEvent(ui_->VScroll, event);
    if (watched == ui_->EditChartFrame && event->type() == QEvent::Resize)
        FitListToFrame();
    // By the key: the toolkit calls it Tab, too, when it moves the focus off a hidden control.
    if (event->type() == QEvent::KeyPress && watched == focusWidget()) {
        const auto* press = static_cast<QKeyEvent*>(event);
        const bool back = press->key() == Qt::Key_Backtab ||
                          (press->key() == Qt::Key_Tab && press->modifiers() & Qt::ShiftModifier);
        if ((back || press->key() == Qt::Key_Tab) &&
            !(press->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
            return MoveByTab(!back);
    }
    return FormWidget::eventFilter(watched, event);
}
