#include "shell/frmAboutDutygrid.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/Desktop.h"
#include "shell/LogoPicture.h"
#include "shell/WebPage.h"
#include "ui_frmAboutDutygrid.h"

frmAboutDutygrid::frmAboutDutygrid()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::frmAboutDutygrid>()) {
    ui_->setupUi(this);
    ui_->Label3->setText(QStringLiteral("Sparkit Dutygrid " DUTYGRID_VERSION));
    ui_->Picture1->setPixmap(LogoPicture(*this, QSize(300, 100)));

    const auto openWebPage = [] {
        CurrentDesktop().ShellExecute(QStringLiteral("open"), ProductWebPage, 3);
    };
    On(ui_->cmdContact, &QPushButton::clicked, this, openWebPage);
    On(ui_->cmdWeb, &QPushButton::clicked, this, openWebPage);
    On(ui_->Label7, &LinkLabel::Clicked, this, openWebPage);
    On(ui_->Label8, &LinkLabel::Clicked, this, openWebPage);
    On(ui_->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

frmAboutDutygrid::~frmAboutDutygrid() = default;

void frmAboutDutygrid::Activate() {
    // Not the first link, round which a box would stand.
    ui_->cmdExit->setFocus();
}
