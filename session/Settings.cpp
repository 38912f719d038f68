#include "session/Settings.h"

#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/TextFiles.h"
#include "session/Session.h"
#include "store/ProgramFiles.h"

namespace {

SettingsForms* shownIn = nullptr;

SettingsForms& Forms() {
    if (shownIn == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *shownIn;
}

void ReadVariables() {
    InputFile file(SettingsFile());
    SeeOtherAccounts = ToInteger(file.InputNumber());
    BackgroundPicture = file.InputText();
    BackgroundColor = ToLong(file.InputNumber());
    SchoolFlag = ToInteger(file.InputNumber());
    SoundOn = ToInteger(file.InputNumber());
}

void ApplyVariables() {
    // The version before the colour: the option's handler may write the file here, and it is to
    // write the colour that the main window had until now.
    const bool school = SchoolFlag != 0;
    SchoolMode = Version::Of(school);
    Forms().SelectVersion(school);

    Forms().SetBackColor(BackgroundColor);
    Forms().SetPicture(LoadPicture(BackgroundPicture));
    Forms().SetSoundMark(SoundOn == 1);
}

} // namespace

void SetSettingsForms(SettingsForms* forms) {
    shownIn = forms;
}

void ReadSettings() {
    WithErrorsEndingTheRun([] {
        ReadVariables();
        ApplyVariables();
    });
}

void WriteSettings() {
    const qint32 color = Forms().BackColor();
    OutputFile file(SettingsFile());
    file.PrintNumber(SeeOtherAccounts);
    file.PrintText(BackgroundPicture);
    file.PrintNumber(color);
    file.PrintNumber(SchoolFlag);
    file.PrintNumber(SoundOn);
    file.Close();
}
