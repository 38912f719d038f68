#include "app/RegisterForms.h"

#include "accounts/AddIncentives.h"
#include "accounts/DisplayAccount.h"
#include "authoring/ChartEditor.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/DropDownCombo.h"
#include "authoring/Newfrm.h"
#include "authoring/Openfrm.h"
#include "authoring/ResetDate.h"
#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "filling/ViewerAccess.h"
#include "help/HelpWindow.h"
#include "platform/desktop/PictureListAccess.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/FormAccess.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/printing/PrintNews.h"
#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"
#include "reports/WeekChartRepresentation.h"
#include "session/Session.h"
#include "shell/BackgroundOptions.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LogIn.h"
#include "shell/LoginWindow.h"
#include "shell/MainForm.h"
#include "shell/NewUser.h"
#include "shell/OtherOptions.h"
#include "shell/PrintLine.h"
#include "shell/SettingsOnForms.h"
#include "shell/frmAboutDutygrid.h"
#include "support/SoundFunctions.h"
#include "widgets/LinkLabel.h"

namespace {

void RegisterShellForms() {
    InstallFormAccess();
    InstallHelpAccess();
    InstallLinkAccess();
    InstallPictureListAccess();
    InstallPrintLineAccess();
    RegisterFormClass<LogIn>();
    RegisterFormClass<LoginWindow>();
    RegisterFormClass<MainForm>();
    RegisterFormClass<NewUser>();
    RegisterFormClass<ChangePasswordfrm>();
    RegisterFormClass<BackgroundOptions>();
    RegisterFormClass<OtherOptions>();
    RegisterFormClass<frmAboutDutygrid>();
    SetMainWindowForm(FormNames::MainForm);
    static SettingsOnForms settings;
    SetSettingsForms(&settings);
    SetSoundSwitch([] { return Default<MainForm>().SoundMark(); });
    // News may come when whoever has printed has long gone.
    SetPrintNews([](const PrintNews& news) {
        if (auto* mainForm = dynamic_cast<MainForm*>(ExistingForm(FormNames::MainForm)))
            mainForm->ShowPrintNews(news);
    });
}

void RegisterAccountForms() {
    RegisterFormClass<DisplayAccount>();
    RegisterFormClass<AddIncentives>();
}

void RegisterReportForms() {
    RegisterFormClass<Reportfrm>();
    RegisterFormClass<DateRangefrm>();
    RegisterFormClass<WeekChartRepresentation>();
    WeeklyReview = []() -> ChartMatrix& { return Default<WeekChartRepresentation>(); };
}

} // namespace

void RegisterAuthoringForms() {
    InstallComboAccess();
    RegisterFormClass<ChartEditor>();
    RegisterFormClass<Newfrm>();
    RegisterFormClass<Openfrm>();
    RegisterFormClass<DeleteChartForm>();
    RegisterFormClass<ResetDate>();
    RegisterFormClass<DisplayAllPeople>();
    ChartEditors.SetMaker([] {
        auto* editor = new ChartEditor;
        return FormSlots<ChartEditorRows>::Slot{editor, editor};
    });
}

void RegisterFillingForms() {
    InstallViewerAccess();
    RegisterFormClass<OpenFillfrm>();
    RegisterFormClass<ChartViewer>();
    ChartViewers.SetMaker([] {
        auto* viewer = new ChartViewer;
        return FormSlots<ChartViewerRows>::Slot{viewer, viewer};
    });
}

void RegisterForms() {
    RegisterShellForms();
    RegisterAccountForms();
    RegisterAuthoringForms();
    RegisterFillingForms();
    RegisterReportForms();
}
