#pragma once

#include "platform/desktop/SystemPrompts.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"
#include "tests/tour/Album.h"
#include "tests/tour/BoxReader.h"
#include "tests/tour/Text.h"

#include <QDate>
#include <QPointer>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>
#include <source_location>

/// The place in the story that a failed expectation names.
using Here = std::source_location;

struct HowToClick {
    Qt::KeyboardModifiers Keys;
    Qt::MouseButton Button = Qt::LeftButton;
    bool Twice = false;
};

/// The program as delivered, in a folder of its own and with a user of its own, driven through its
/// real windows and message boxes by mouse and keys.
///
/// What a user does and sees is always on the form in front, which Front names.
class Tour : public testing::Test {
protected:
    /// `chapter` begins the names of all pictures.
    Tour(const Text& chapter, const QDate& firstDay);
    ~Tour() override;

    /// Starts the program as its main function does.
    void StartProgram();
    /// The clock is moved on to another day.
    static void TheDayIs(const QDate& day);

    /// Waits until the windows have come to rest and all expected boxes have come.
    void Settle();

    // Hands

    /// From here on this form is used. Fails hard if another one is in front.
    void Front(const Text& form, Here here = Here::current());
    /// Waits until the main window is in front, with or without a form inside.
    void MainWindowComes(Here here = Here::current());
    void Click(const Text& control);
    /// Replaces the text of a box by typed keys.
    void Type(const Text& box, const Text& text);
    /// The same while a message box stands that leaves its form within reach.
    void TypeBehindBox(const Text& box, const Text& text);
    void Press(const Text& control, Qt::Key key);
    /// Drops a combo box's list down and clicks on an entry.
    void Choose(const Text& combo, const Text& entry);
    /// Clicks on a list's entry, the first of that text.
    void Pick(const Text& list, const Text& entry, Qt::KeyboardModifiers keys = {});
    void DoublePick(const Text& list, const Text& entry);
    /// Presses the right button on a list's entry.
    void RightPress(const Text& list, const Text& entry);
    /// Clicks on a day of the month that the calendar shows.
    void ChooseDay(const Text& calendar, const QDate& day);
    /// Moves a scroll bar by its arrows.
    void ScrollTo(const Text& bar, int value);
    /// Clicks below a list's last entry.
    void ClickBelowEntries(const Text& list);
    void Toolbar(const Text& key);
    /// Opens a menu of the main window and clicks on an entry; both by their control names.
    void Menu(const Text& menu, const Text& entry);
    /// Opens a menu and takes a picture of it; then closes it.
    void ShowMenu(const Text& menu, const Text& picture);
    void Shortcut(Qt::Key key);
    /// A picture of the whole window that holds the form in front.
    void Shoot(const Text& picture);

    // Eyes

    void Shows(const Text& control, const Text& text, Here here = Here::current());
    /// The control can be seen, or cannot.
    void CanSee(const Text& control, bool seen, Here here = Here::current());
    void IsChosen(const Text& option, bool chosen, Here here = Here::current());
    void Lists(const Text& list, const QList<Text>& entries, Here here = Here::current());
    /// A combo box offers these entries.
    void Offers(const Text& combo, const QList<Text>& entries, Here here = Here::current());
    /// The heading above a list's column.
    void HeadingIs(const Text& list, const Text& heading, Here here = Here::current());
    void CaptionIs(const Text& caption, Here here = Here::current());
    void ShowsPicture(const Text& label, bool picture, Here here = Here::current());
    /// The captions of the toolbar's buttons, from left to right.
    void ToolbarShows(const QList<Text>& captions, Here here = Here::current());
    /// The line beside the menus about what has become of a print; "" where none is seen.
    void TellsOfPrint(const Text& line, Here here = Here::current());
    void MenuShows(const Text& menu, const QList<Text>& captions, Here here = Here::current());
    /// No form of that name is shown.
    void IsGone(const Text& form, Here here = Here::current());

    // What is kept and what has been sent

    /// The database file answers a query with these rows, fields joined by "|".
    void Stored(const Text& query, const QList<Text>& rows, Here here = Here::current());
    /// The names of all tables but the accounts', in the order of their making.
    void Tables(const QList<Text>& names, Here here = Here::current());
    /// A text file of the program folder holds these lines.
    void FileHolds(const Text& file, const QList<Text>& lines, Here here = Here::current());
    /// A text file holds these lines one behind the other.
    void FileHasLines(const Text& file, const QList<Text>& lines, Here here = Here::current());
    /// One more job has come from the printer: these texts stand on it in this order.
    void Printed(const QList<Text>& texts, int pages = 1, Here here = Here::current());
    /// Forgets the sounds until now.
    void Listen();
    /// The sounds since then, or since the last look, by file name.
    void Heard(const QList<Text>& sounds, Here here = Here::current());

    static QString InFolder(const Text& tail);

    Album Pictures;
    BoxReader Boxes;
    ScriptedDesktop DesktopCalls;
    /// The exit codes with which the process would have ended.
    QList<int> Ends;

private:
    QWidget& Control(const QString& name) const;
    static QWidget& MainWindow();
    static void BringIntoView(const QWidget& widget, const QPoint& place);
    void ClickAt(QWidget& widget, const QPoint& place, const HowToClick& how = {});
    void PickEntry(const QString& list, const QString& entry, const HowToClick& how);

    QTemporaryDir folder_{MemoryFolder()};
    SystemPrompts prompts_;
    TestRun run_{{.Boxes = &prompts_,
                  .Desktop = &DesktopCalls,
                  .Paper = &Pictures,
                  .ProgramFolder = folder_.path(),
                  .End = [this](int exitCode) { Ends += exitCode; }}};
    QPointer<QWidget> form_;
    int printsSeen_ = 0;
    int soundsSeen_ = 0;
};
