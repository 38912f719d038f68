#include "filling/ChartViewer.h"

#include "filling/MouseWatch.h"
#include "filling/ViewerLayout.h"
#include "look/LookColors.h"
#include "look/TickPath.h"
#include "platform/forms/Handlers.h"
#include "platform/forms/Twips.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "store/DayTexts.h"
#include "store/TableNames.h"
#include "support/SoundFunctions.h"
#include "ui_ChartViewer.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/HiddenWhile.h"

#include <QPainter>
#include <QScopeGuard>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

namespace {

/// The head of the boxes' column: a tick without a box, so that nobody takes it for one.
QPixmap HeadTick(qreal scale) {
    constexpr int side = 15; // pixels
    QPixmap picture(QSize(side, side) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(LookColors::Ink, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(TickPath(QRectF(1, 1, side - 2, side - 2)));
    return picture;
}

} // namespace

ChartViewer::ChartViewer()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::ChartViewer>()) {
    ui_->setupUi(this);
    QPalette softLine = palette();
    softLine.setColor(QPalette::WindowText, LookColors::Line);
    ui_->Line1->setPalette(softLine);
    ui_->DoneColumn->setPixmap(HeadTick(devicePixelRatioF()));
    DesignRows();
    ShowResponsible(false);
    ui_->CleanUpList->installEventFilter(this);
    fitLater_.setSingleShot(true);
    On(&fitLater_, &QTimer::timeout, this, [this] { FitToRoom(); });
    On(ui_->NextDay, &QPushButton::clicked, this, [this] { NextDay_Click(); });
    On(ui_->PreviousDay, &QPushButton::clicked, this, [this] { PreviousDay_Click(); });
    On(ui_->Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->VScroll, &QScrollBar::valueChanged, this, [this](int value) { ScrollTo(value); });
    WatchMouseOn(*this);
    WatchMouseOn(*ui_->CleanUpList);
}

ChartViewer::~ChartViewer() = default;

namespace {

/// Of an incentive without a name or a cost nothing is stored, and the caption stays as it is.
class IncentiveCaption : public LabelCaption {
public:
    using LabelCaption::LabelCaption;
    std::optional<QString> Stored;

    void SetCaption(const QString& caption) override {
        Stored = caption;
        LabelCaption::SetCaption(caption);
    }
};

} // namespace

// Each activation turns the page and arms the goal again, also on a return to the form.
void ChartViewer::Activate() {
    LabelPicture userPicture(*ui_->Image2);
    LabelPicture toyPicture(*ui_->Image3);
    IncentiveCaption toyName(*ui_->ToyName);
    LabelCaption pointsLabel(*ui_->Label3);

    NextDay_Click();
    ShowWeek();
    ui_->UsersName->setText(CurrentUser);
    Database().RetrevePicture(CurrentUser, userPicture);
    // Label3 shows the cost of the incentive for a moment, then the account's points.
    IncentiveCaption costLabel(*ui_->Label3);
    Database().RetrieveToy(CurrentUser, toyName, toyPicture, costLabel);
    ui_->ToyName->setText(ui_->ToyName->text() + QLatin1Char(' ') + ui_->Label3->text() +
                          QStringLiteral(" Points"));
    GoalPoints = ToInteger(Val(ui_->Label3->text()));
    Database().RetrievePoints(CurrentUser, pointsLabel);
    ShowPointsNeeded();
    // The way is to what is stored: points that only stood in the place of the cost are no goal,
    // and a caption that has grown is no name.
    ui_->WayToGoal->Show(Val(ui_->Label3->text()), costLabel.Stored ? GoalPoints : 0,
                         toyName.Stored.value_or(QString()), toyPicture.Picture());
    ui_->ChartNamelbl->setText(CurrentUser + QStringLiteral("'s ") + FirstWord(ChartName) +
                               QStringLiteral(" Dutygrid"));
    SetCaption(ui_->ChartNamelbl->text());
    ui_->Label4->setText(QStringLiteral("Today is ") + WeekdayName(Today()) +
                         QStringLiteral(" - ") + DateText(Today()));
    FocusFirstOpenMark();
}

/// The days that have jobs, whichever is on display.
void ChartViewer::ShowWeek() {
    ui_->Week->SetWeek(Database().DaysWithJobs(ChartName), Today().dayOfWeek() % DaysOfWeek + 1);
}

void ChartViewer::Unloaded() {
    ChartViewers.Forget(this);
}

void ChartViewer::Abandon() {
    if (!IsUnloaded())
        Drop();
}

void ChartViewer::PlaceInMainWindow() {
    if (const QWidget* area = Frame().parentWidget())
        Move(TwipsOf(std::max(0, (area->width() - Frame().width()) / 2)), 0);
}

/// Committed before they leave the screen: after a fault they stand there as they were made.
void ChartViewer::StoreMarks() {
    Database().WriteInfoToChart(ChartName, FormIndex, true, QString(), QDate(), QDate(), false);
    CommitAction();
}

void ChartViewer::NextDay_Click() {
    TurnPage(1);
}

void ChartViewer::PreviousDay_Click() {
    TurnPage(-1);
}

/// `step`: 1 or -1. The week is a ring.
void ChartViewer::TurnPage(int step) {
    AllRowsBlack();
    SetHeight(ViewerLayout::FormHeight);
    ShowResponsible(false);
    FitToRoom();
    StoreMarks();
    ExchangeRows(step);
    PlaySoundEffect(QStringLiteral("InitAnimation"));
}

/// A page with as many rows as the one before is written over it; most days have the same jobs.
void ChartViewer::ExchangeRows(int step) {
    filledRows_ = 1;
    begunRows_ = 1;
    isWrittenOver_ = false;
    // Also after an error nothing of the page before is left, and a row that was begun is there.
    const auto removeUnfilled = qScopeGuard([this] {
        RemoveRows(filledRows_);
        if (begunRows_ > filledRows_)
            CreateNewTask(filledRows_);
    });
    QString day;
    qint16 count = 0;
    while ((count = Database().PrintReturnNr_Articles(day, ChartName)) == 0) {
        DayNumber = AddIntegers(DayNumber, static_cast<qint16>(step));
        if (DayNumber > DaysOfWeek)
            DayNumber = 1;
        else if (DayNumber < 1)
            DayNumber = DaysOfWeek;
        day = DayAbbreviation(DayNumber);
    }
    TellDay();
    if (count == Instructions.Count() && !AreRowsInUse()) {
        Database().ReadInfoFromChart(ChartName, FormIndex, true, day);
        return;
    }
    const HiddenWhile rowsChange(*ui_->CleanUpList);
    RemoveRows();
    Database().ReadInfoFromChart(ChartName, FormIndex, true, day);
}

/// The week's bar stands below the day on display. Who hears the page has the keyboard on the
/// button that turned it, where a change is read out.
void ChartViewer::TellDay() {
    ui_->Week->SetShown(DayNumber);
    const QString seen = QStringLiteral("You see %1.").arg(FullDayName(DayAbbreviation(DayNumber)));
    for (QPushButton* button : {ui_->PreviousDay, ui_->NextDay})
        button->setAccessibleDescription(seen);
}

/// The keyboard is in one of them, a mark is held down or is still popping in.
bool ChartViewer::AreRowsInUse() const {
    for (int row = 0; row < CheckImg.Count(); ++row)
        if (CheckImg[row].IsMoving() || CheckImg[row].isDown() || ClearImg[row].isDown())
            return true;
    return ui_->CleanUpList->isAncestorOf(focusWidget());
}

void ChartViewer::Ok_Click() {
    StoreMarks();
    if (Database().AllChecked(ChartName))
        PlaySoundEffect(QStringLiteral("Applause"));
    Tag.clear();
    Unload();
}

// What is printed is the table: marks of the day on display that were not stored yet are not on it.
void ChartViewer::Command1_Click() {
    if (Ask(QStringLiteral(
            "Please click the 'Yes' button to print your Sparkit Dutygrid showing check marks for "
            "those jobs that have been completed for the week."))) {
        Database().PrintChart(ChartName, false, CurrentUser, QString());
        return;
    }
    Tell(QStringLiteral(
        "Please click 'Ok' to print out your Sparkit Dutygrid with checkboxes to be filled in by "
        "you as you complete the jobs."));
    Database().PrintChart(ChartName, false, CurrentUser, QString(QChar(25)));
}

void ChartViewer::WatchMouseOn(QWidget& widget) {
    auto* watch = new MouseWatch(&widget);
    On(watch, &MouseWatch::Pressed, this, [this](int x, int y) { StoreMousePlace(x, y); });
    On(watch, &MouseWatch::Dragged, this, [this](int x, int y) { Drag(x, y); });
}

void ChartViewer::StoreMousePlace(int x, int y) {
    MouseX = ToInteger(x);
    MouseY = ToInteger(y);
}

void ChartViewer::Drag(int x, int y) {
    if (MouseX != 0 && MouseY != 0)
        Move(Left() - MouseX + x, Top() - MouseY + y);
}

void ChartViewer::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(ui_->VScroll, event);
}
