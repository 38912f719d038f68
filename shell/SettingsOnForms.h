#pragma once

#include "session/Settings.h"

/// The settings in the log-in form and the main window.
class SettingsOnForms : public SettingsForms {
public:
    void SelectVersion(bool school) override;
    qint32 BackColor() const override;
    void SetBackColor(qint32 color) override;
    void SetPicture(const QImage& picture) override;
    void SetSoundMark(bool on) override;
};
