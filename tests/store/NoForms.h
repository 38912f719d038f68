#pragma once

#include "session/Settings.h"

/// Settings that show in no form.
struct NoForms : SettingsForms {
    void SelectVersion(bool) override {}
    qint32 BackColor() const override { return 0; }
    void SetBackColor(qint32) override {}
    void SetPicture(const QImage&) override {}
    void SetSoundMark(bool) override {}
};
