#include "shell/InitValues.h"

#include "platform/forms/DefaultForms.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "session/Session.h"
#include "shell/MainForm.h"

#include <QDir>
#include <array>

namespace {

// What one kind of account sees and the other does not. A child loses the toolbar's buttons for
// options, web site and about, yet keeps the same three in the menus.
constexpr std::array AdultEntries = {QLatin1String("NewChart"),  QLatin1String("mnuLine1"),
                                     QLatin1String("OpenChart"), QLatin1String("mnuReviewDutygrid"),
                                     QLatin1String("JobReport"), QLatin1String("OtherOp")};
constexpr std::array AdultButtons = {QLatin1String("New"),     QLatin1String("Open"),
                                     QLatin1String("Review"),  QLatin1String("Print"),
                                     QLatin1String("Options"), QLatin1String("Website"),
                                     QLatin1String("About")};

void ShowEntries(bool adult) {
    auto& window = Default<MainForm>();
    for (const QLatin1String& name : AdultEntries)
        window.MenuEntry(name).setVisible(adult);
    window.MenuEntry(QLatin1String("FillChart")).setVisible(!adult);
    for (const QLatin1String& key : AdultButtons)
        window.ToolbarButton(key).setVisible(adult);
    window.ToolbarButton(QLatin1String("OpenKid")).setVisible(!adult);

    QAction& view = window.ToolbarButton(QLatin1String("View"));
    view.setVisible(true);
    view.setText(adult ? QStringLiteral("Accounts") : QStringLiteral("Account"));
}

} // namespace

void SetAccountRights() {
    if (IsAdult(CurrentState))
        ShowEntries(true);
    else if (IsChild(CurrentState))
        ShowEntries(false);
}

void RemoveDeleteMe() {
    QDir().rmdir(InProgramFolder(QStringLiteral("DeleteMe")));
}

QString ReturnDateKey(const QDate& Value) {
    return DateKey(Value);
}
