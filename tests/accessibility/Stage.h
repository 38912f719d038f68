#pragma once

#include "help/HelpWindow.h"
#include "platform/desktop/PictureDialog.h"
#include "platform/runtime/Desktop.h"
#include "restore/RestoreWindow.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <memory>

/// File and colour dialogs that are cancelled.
class SilentDesktop : public Desktop {
public:
    QStringList Opened;

    std::optional<QString> OpenFile(const QString&) override { return std::nullopt; }
    std::optional<qint32> ChooseColor(qint32) override { return std::nullopt; }
    void ShellExecute(const QString&, const QString& target, int) override { Opened += target; }
    void ShowHelp(const QString&, int) override {}
    void PlaySoundA(const QString&, quint32) override {}
    bool WantsLessMotion() override { return true; }
};

/// A family's world of its own with one form shown in it, filled as in everyday use.
class Stage : public FormTest {
public:
    Stage();
    ~Stage() override;

    /// The forms that can be shown, in the order of the program's day.
    static QStringList Names();

    /// Shows a form and waits until it is in front. Returns its window or sub-window's inside.
    QWidget& Show(const QString& name);

    /// The files among which the dialog for pictures lets choose.
    static QStringList PictureFiles();

    /// Lets events run until the windows have come to rest.
    static void WaitForRest() { Settle(); }

    /// Message boxes shown and web pages opened so far.
    QStringList Told() const { return prompts_.Shown + desktop_.Opened; }

private:
    void TestBody() override {}
    void FillStore();
    static void MakeCopies();
    QWidget& ShowForm(const QString& name);
    QWidget& ShowPictures();
    static void WaitForKeyboard(const QWidget& form);
    QWidget& OpenEditor();
    QWidget& OpenViewer();
    void PickChart(const QString& form);

    RecordingPrompts prompts_;
    SilentDesktop desktop_;
    std::unique_ptr<HelpWindow> help_;
    std::unique_ptr<RestoreWindow> restore_;
    std::unique_ptr<PictureDialog> pictures_;
};
