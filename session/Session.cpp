#include "session/Session.h"

#include "platform/runtime/Actions.h"
#include "store/DailyCopies.h"

QString CurrentUser;
QString CurrentState;
qint16 SchoolMode = Version::Home;
qint16 SchoolFlag = 0;
qint16 SoundOn = 0;
qint16 SeeOtherAccounts = 0;
QString BackgroundPicture;
qint32 BackgroundColor = 0;
FormSlots<ChartEditorRows> ChartEditors;
FormSlots<ChartViewerRows> ChartViewers;
std::function<ChartMatrix&()> WeeklyReview;
qint16 ChartFormIndex = 0;

namespace {

class SessionForms : public ChartForms {
public:
    ChartEditorRows& Editor(qint16 formIndex) override { return ChartEditors.At(formIndex); }
    ChartViewerRows& Viewer(qint16 formIndex) override { return ChartViewers.At(formIndex); }
    ChartMatrix& Review() override {
        if (!WeeklyReview)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        return WeeklyReview();
    }
    QString CurrentUserName() const override { return CurrentUser; }
    bool IsSchool() const override { return Version::IsSchool(SchoolMode); }
};

std::unique_ptr<DatabaseCls>& Store() {
    static std::unique_ptr<DatabaseCls> store;
    return store;
}

} // namespace

DatabaseCls& Database() {
    if (!Store()) {
        static SessionForms forms;
        Store() = std::make_unique<DatabaseCls>(forms);
        SetCommitHook([] { Store()->Commit(); });
    }
    return *Store();
}

void ShowPictureOf(const QString& name, PictureTarget& target) {
    Database().RetrevePicture(name, target);
}

void ResetSession() {
    SetCommitHook({});
    Store().reset();
    FinishDailyCopy();
    CurrentUser.clear();
    CurrentState.clear();
    SchoolMode = Version::Home;
    SchoolFlag = 0;
    SoundOn = 0;
    SeeOtherAccounts = 0;
    BackgroundPicture.clear();
    BackgroundColor = 0;
    ChartEditors.Clear();
    ChartViewers.Clear();
    ChartFormIndex = 0;
}
