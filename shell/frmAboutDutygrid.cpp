#include "shell/frmAboutDutygrid.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/Desktop.h"
#include "shell/LogoPicture.h"
#include "shell/WebPage.h"
#include "ui_frmAboutDutygrid.h"

frmAboutDutygrid::frmAboutDutygrid()
    : FormWidget(Place::InMainWindow), ui(std::make_unique<Ui::frmAboutDutygrid>()) {
    ui->setupUi(this);
    ui->Label3->setText(QStringLiteral("Sparkit Dutygrid " DUTYGRID_VERSION));
    ui->Picture1->setPixmap(LogoPicture(*this, QSize(300, 100)));

    const auto openWebPage = [] {
        CurrentDesktop().ShellExecute(QStringLiteral("open"), ProductWebPage, 3);
    };
    On(ui->cmdContact, &QPushButton::clicked, this, openWebPage);
    On(ui->cmdWeb, &QPushButton::clicked, this, openWebPage);
    On(ui->Label7, &LinkLabel::Clicked, this, openWebPage);
    On(ui->Label8, &LinkLabel::Clicked, this, openWebPage);
    On(ui->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

frmAboutDutygrid::~frmAboutDutygrid() = default;
