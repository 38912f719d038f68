#include "shell/SettingsOnForms.h"

#include "platform/forms/DefaultForms.h"
#include "shell/LogIn.h"
#include "shell/MainForm.h"

void SettingsOnForms::SelectVersion(bool school) {
    Default<LogIn>().SelectVersion(school);
}

qint32 SettingsOnForms::BackColor() const {
    return Default<MainForm>().BackColor();
}

void SettingsOnForms::SetBackColor(qint32 color) {
    Default<MainForm>().SetBackColor(color);
}

void SettingsOnForms::SetPicture(const QImage& picture) {
    Default<MainForm>().SetPicture(picture);
}

void SettingsOnForms::SetSoundMark(bool on) {
    Default<MainForm>().SetSoundMark(on);
}
