#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <QAction>
#include <QImage>
#include <QMainWindow>
#include <memory>

struct Greeting;
class PrintLine;
struct PrintNews;

namespace Ui {
class MainForm;
}

/// The frame of a session: menus, one toolbar and a background, within which every other form is
/// opened. It lives, hidden while nobody is logged in, from the first reading of the settings to
/// the end of the process.
class MainForm : public QMainWindow, public Form {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::MainForm;

    MainForm();
    ~MainForm() override;

    /// The background's colour value, red in the low byte.
    qint32 BackColor() const;
    void SetBackColor(qint32 color);
    /// The background's picture; a null image is none.
    QImage Picture() const;
    void SetPicture(const QImage& picture);

    /// The check mark of the menu entry SoundOnOff, which switches all sounds.
    bool SoundMark() const;
    void SetSoundMark(bool on);

    /// A menu entry by its name, a toolbar button by its key. Raises 91 for an unknown one.
    QAction& MenuEntry(QLatin1String name) const;
    QAction& ToolbarButton(QLatin1String key) const;

    /// Tells what has become of a print, until the next action.
    void ShowPrintNews(const PrintNews& news);

    /// Does what the toolbar button with the key does; an unknown key does nothing.
    void KidToolbar_ButtonClick(const QString& Key);

protected:
    void Activate() override;
    bool QueryUnload() override;
    void Unloaded() override;
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildToolbar();
    void FitToolbar(const QSize& room);
    Greeting MakeGreeting() const;
    void ConnectMenus();
    void SwapToolbarAndForm();
    void OpenWith(QAction* entry, const QString& form);
    void SoundOnOff_Click(bool nowChecked);
    void ShowHelpFile();
    void OpenWebPage();
    void LogOffNow();

    std::unique_ptr<Ui::MainForm> ui_;
    PrintLine* printLine_;
};
