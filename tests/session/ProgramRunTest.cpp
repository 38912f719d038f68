#include "session/ProgramRun.h"

#include "session/Settings.h"
#include "support/SoundFunctions.h"
#include "tests/common/RuntimeTest.h"

namespace {

class AnyForms : public SettingsForms {
public:
    void SelectVersion(bool) override {}
    qint32 BackColor() const override { return 0; }
    void SetBackColor(qint32) override {}
    void SetPicture(const QImage&) override {}
    void SetSoundMark(bool) override {}
};

TEST(ProgramRunTest, LeavesNoFormsForTheSettingsAndNoSoundSwitchBehind) {
    AnyForms forms;
    bool isAsked = false;
    {
        const ProgramRun run({});
        SetSettingsForms(&forms);
        SetSoundSwitch([&isAsked] {
            isAsked = true;
            return false;
        });
    }
    EXPECT_ERROR(91, WriteSettings());
    PlaySoundEffect(QStringLiteral("Applause"));
    EXPECT_FALSE(isAsked);
}

} // namespace
