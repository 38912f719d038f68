#include "shell/BackgroundOptions.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Colors.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "shell/BackgroundArea.h"
#include "shell/MainForm.h"
#include "ui_BackgroundOptions.h"
#include "widgets/FormViewAdapters.h"

BackgroundOptions::BackgroundOptions()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::BackgroundOptions>()) {
    ui_->setupUi(this);
    // With no dialog used, Ok makes the background black, and so the swatch begins.
    PaintSwatch();
    On(ui_->BrowseButton, &QPushButton::clicked, this, [this] { BrowseButton_Click(); });
    On(ui_->SetColorbtn, &QPushButton::clicked, this, [this] { SetColorbtn_Click(); });
    On(ui_->Deliveredbtn, &QPushButton::clicked, this, [this] { Deliveredbtn_Click(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

BackgroundOptions::~BackgroundOptions() = default;

void BackgroundOptions::BrowseButton_Click() {
    const QString file = AskForFile(QString()).value_or(browseFileName_);
    // What cannot be loaded is not chosen.
    const QImage picture = LoadPicture(file);
    browseFileName_ = file;
    LabelPicture(*ui_->Image1).SetPicture(picture);
    ui_->Picture1->hide();
    if (!file.isEmpty() && !IsSeenByAllUsers(file))
        Tell(QStringLiteral("Not everyone who uses Sparkit Dutygrid on this computer may open this "
                            "picture, and for them the program could not start with it. Choose a "
                            "picture that all may open, such as one of the folder Backgrounds."),
             PromptIcon::Exclamation);
}

void BackgroundOptions::SetColorbtn_Click() {
    if (const auto chosen = AskForColor(dialogColor_))
        dialogColor_ = *chosen;
    ShowSwatch();
}

void BackgroundOptions::Deliveredbtn_Click() {
    // As if both dialogs had been left so: nothing is set before Ok.
    browseFileName_.clear();
    LabelPicture(*ui_->Image1).SetPicture(QImage());
    dialogColor_ = BackgroundArea::DeliveredColor;
    ShowSwatch();
}

void BackgroundOptions::ShowSwatch() {
    PaintSwatch();
    ui_->Picture1->show();
    ui_->Picture1->raise();
}

void BackgroundOptions::PaintSwatch() {
    // One pixel, spread over the whole swatch.
    QPixmap color(1, 1);
    color.fill(ColorFromValue(dialogColor_));
    ui_->Picture1->setPixmap(color);
}

void BackgroundOptions::Ok_Click() {
    auto& window = Default<MainForm>();
    window.SetPicture(LoadPicture(browseFileName_));
    window.SetBackColor(dialogColor_);
    BackgroundPicture = browseFileName_;
    BackgroundColor = browseFileName_.isEmpty() ? dialogColor_ : 0;
    WriteSettings();
    Unload();
}
