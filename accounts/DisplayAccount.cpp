#include "accounts/DisplayAccount.h"

#include "accounts/AddIncentives.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "ui_DisplayAccount.h"
#include "widgets/EmptyNote.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/PersonRows.h"

DisplayAccount::DisplayAccount()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::DisplayAccount>()) {
    ui_->setupUi(this);
    // A wider form holds it in the middle.
    ui_->Content->setMaximumWidth(ui_->Content->sizeHint().width());
    for (QLabel* picture : {ui_->Image1, ui_->Image2})
        picture->setContentsMargins(5, 5, 5, 5);
    // Where the cards are only as high as they must be nothing moves as the way comes and goes.
    QSizePolicy wayKeepsItsRoom = ui_->WayToGoal->sizePolicy();
    wayKeepsItsRoom.setRetainSizeWhenHidden(true);
    ui_->WayToGoal->setSizePolicy(wayKeepsItsRoom);
    new EmptyNote(*ui_->StudentsList,
                  QStringLiteral("No Sparkit yet. The log-in's \"New User\" makes one."));
    // Nothing opens here: Enter is the form's.
    ui_->StudentsList->SetRules({.Unselecting = Qt::AllButtons, .FirstKeyTakesRow = true});
    new PersonRows(*ui_->StudentsList, ShowPictureOf);
    On(ui_->StudentsList, &ChildrenList::Pressed, this,
       [this](Qt::MouseButton button, QTreeWidgetItem* row) {
           StudentsList_MouseDown(button, row);
       });
    On(&ui_->StudentsList->Clicks, &ListClicks::Clicked, this, [this] { StudentsList_Click(); });
    On(ui_->StudentsList, &ChildrenList::DraggedOver, this, [this] { StudentsList_Click(); });
    On(ui_->Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    On(ui_->cmdReset, &QPushButton::clicked, this, [this] { cmdReset_Click(); });
    On(ui_->Infobtn, &QPushButton::clicked, this, [this] { Infobtn_Click(); });
    On(ui_->Incentivesbtn, &QPushButton::clicked, this, [this] { Incentivesbtn_Click(); });
    On(ui_->Exitbtn, &QPushButton::clicked, this,
       [] { DefaultForm(FormNames::WeekChartRepresentation).Show(); });
    On(ui_->cmdChgPic, &QPushButton::clicked, this, [this] { cmdChgPic_Click(); });
    On(ui_->Okbtn, &QPushButton::clicked, this, [this] { Unload(); });
    // What has been stored is told until the next action.
    for (const QPushButton* button : findChildren<QPushButton*>())
        connect(button, &QPushButton::pressed, ui_->Stored, &QLabel::clear);
    connect(ui_->StudentsList, &ChildrenList::Pressed, ui_->Stored, &QLabel::clear);
    connect(&ui_->StudentsList->Clicks, &ListClicks::Clicked, ui_->Stored, &QLabel::clear);
}

DisplayAccount::~DisplayAccount() = default;

QString DisplayAccount::ReturnSelectedStudent() const {
    return ui_->StudentsList->SelectedName();
}

void DisplayAccount::Activate() {
    // What is listed is stored.
    CommitAction();
    FillList();
    StudentsList_Click();
    EmptyFigures();
    ReadSettings();
    // The other names of the kinds are left out here, unlike elsewhere: for them the buttons stay
    // as they are.
    if (IsStoredAdult(CurrentState))
        ShowForAdult();
    else if (IsStoredChild(CurrentState))
        ShowForChild();
    ShowWay();
}

void DisplayAccount::FillList() {
    ChildrenList& list = *ui_->StudentsList;
    list.Refill([&list] { Database().PopulateUserList(nullptr, list); });
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list.topLevelItem(row);
        item->setSelected(false);
        if (item->text(0) == CurrentUser)
            list.setCurrentItem(item, 0, QItemSelectionModel::ClearAndSelect);
    }
}

void DisplayAccount::EmptyFigures() {
    for (QLabel* figure :
         std::initializer_list<QLabel*>{ui_->Pointslbl, ui_->ToyName, ui_->ToyValue})
        figure->clear();
}

void DisplayAccount::ShowForAdult() {
    // A child that has used the form before may have left it without the list.
    ui_->StudentsList->show();
    ui_->Label2->show();
    for (QPushButton* button :
         {ui_->Exitbtn, ui_->Command1, ui_->Incentivesbtn, ui_->Okbtn, ui_->cmdReset, ui_->Infobtn})
        button->show();
}

void DisplayAccount::ShowForChild() {
    for (QPushButton* button :
         {ui_->Exitbtn, ui_->Command1, ui_->cmdReset, ui_->Infobtn, ui_->Incentivesbtn})
        button->hide();
    ui_->Okbtn->show();
    const bool seesOthers = SeeOtherAccounts != 0;
    ui_->StudentsList->setVisible(seesOthers);
    ui_->Label2->setVisible(seesOthers);
    if (seesOthers)
        return;

    ShowAccount(CurrentUser);
    ui_->KidName->setText(CurrentUser);
}

/// What the store has of an account: its picture, its goal and its points.
void DisplayAccount::ShowAccount(const QString& account) {
    EmptyFigures();
    LabelPicture picture(*ui_->Image1);
    Database().RetrevePicture(account, picture);
    LabelCaption toyName(*ui_->ToyName);
    LabelPicture toyPicture(*ui_->Image2);
    LabelCaption toyValue(*ui_->ToyValue);
    Database().RetrieveToy(account, toyName, toyPicture, toyValue);
    LabelCaption points(*ui_->Pointslbl);
    Database().RetrievePoints(account, points);
}

void DisplayAccount::StudentsList_Click() {
    const QString student = ReturnSelectedStudent();
    ShowAccount(student);

    const double needed = Val(ui_->ToyValue->text()) - Val(ui_->Pointslbl->text());
    ui_->Label5->setText(needed <= 0 ? QStringLiteral("0") : NumberText(needed));
    constexpr int size = 24; // points
    QFont font = ui_->Label5->font();
    font.setPointSize(size);
    ui_->Label5->setFont(font);
    ui_->KidName->setText(student);
    ShowWay();
}

/// The way to the goal by the figures that the labels show; without any there is none. Where they
/// are nobody's the form says in the place of the points how they become somebody's.
void DisplayAccount::ShowWay() {
    const bool isNobodys = ui_->Pointslbl->text().isEmpty();
    const ChildrenList& list = *ui_->StudentsList;
    const bool canChoose = !list.isHidden() && list.topLevelItemCount() > 0;
    ui_->NobodyChosen->setVisible(isNobodys && canChoose);
    ui_->Pointslbl->setHidden(isNobodys && canChoose);
    ui_->WayToGoal->Show(Val(ui_->Pointslbl->text()), Val(ui_->ToyValue->text()),
                         ui_->ToyName->text(), LabelPicture(*ui_->Image2).Picture());
    ui_->WayToGoal->setVisible(!isNobodys);
}

void DisplayAccount::StudentsList_MouseDown(Qt::MouseButton button, QTreeWidgetItem* row) {
    if (!IsAdult(CurrentState))
        return;
    if (button == Qt::RightButton) {
        // The question is about the row beneath the mouse, and shows whose it is.
        ui_->StudentsList->clearSelection();
        if (row != nullptr)
            ui_->StudentsList->setCurrentItem(row);
        StudentsList_Click();
        const QString student = ReturnSelectedStudent();
        if (AskBeforeLoss(QStringLiteral("Are you sure you want to delete this account?")) &&
            !student.isEmpty())
            Database().DeleteAccount(student);
    }
    Activate();
}

void DisplayAccount::Command1_Click() {
    if (AskBeforeLoss(QStringLiteral("Are you sure you want to cash out?")))
        Database().AddPoints(ReturnSelectedStudent(), ToInteger(-Val(ui_->ToyValue->text())),
                             false);
    Activate();
}

void DisplayAccount::cmdReset_Click() {
    if (AskBeforeLoss(QStringLiteral("Are you sure you want to reset?")))
        Database().AddPoints(ReturnSelectedStudent(), 0, true);
    Activate();
}

void DisplayAccount::Infobtn_Click() {
    if (Ask(QStringLiteral("Are you sure you want to print?")))
        Database().PrintUsersPasswords();
    Activate();
}

void DisplayAccount::Incentivesbtn_Click() {
    auto& editor = Default<AddIncentives>();
    editor.AccountName = ReturnSelectedStudent();
    editor.Show();
}

void DisplayAccount::cmdChgPic_Click() {
    // A cancelled dialog holds no name, with which the picture stays as it is.
    const QString file =
        AskForFile(InProgramFolder(QStringLiteral("UsersPictures"))).value_or(QString());
    const QString account = IsAdult(CurrentState) ? ReturnSelectedStudent() : CurrentUser;
    Database().ChangePicture(account, file);
    if (!file.isEmpty())
        TellStored(account, QStringLiteral("picture"));
    Activate();
}

void DisplayAccount::ShowStored(const QString& account, const QString& what) {
    ui_->Stored->setText(QStringLiteral("%1's %2 has been stored.").arg(account, what));
}

void TellStored(const QString& account, const QString& what) {
    if (account.isEmpty())
        return;
    AfterCommit([account, what] {
        if (auto* view = dynamic_cast<DisplayAccount*>(ExistingForm(FormNames::DisplayAccount)))
            view->ShowStored(account, what);
    });
}
