#include "shell/RegisterForms.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/FormAccess.h"
#include "shell/BackgroundOptions.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LinkLabel.h"
#include "shell/LogIn.h"
#include "shell/LoginWindow.h"
#include "shell/MainForm.h"
#include "shell/NewUser.h"
#include "shell/OtherOptions.h"
#include "shell/frmAboutDutygrid.h"
#include "support/SoundFunctions.h"

void RegisterShellForms() {
    InstallFormAccess();
    InstallLinkAccess();
    RegisterFormClass<LogIn>();
    RegisterFormClass<LoginWindow>();
    RegisterFormClass<MainForm>();
    RegisterFormClass<NewUser>();
    RegisterFormClass<ChangePasswordfrm>();
    RegisterFormClass<BackgroundOptions>();
    RegisterFormClass<OtherOptions>();
    RegisterFormClass<frmAboutDutygrid>();
    SetSoundSwitch([] { return Default<MainForm>().SoundMark(); });
}
