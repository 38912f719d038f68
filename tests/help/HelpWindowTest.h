#pragma once

#include "help/HelpPage.h"
#include "help/HelpWindow.h"
#include "tests/common/FormTest.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTreeWidget>

/// A fixture for the help window with a small book.
class HelpWindowTest : public FormTest {
protected:
    /// Three pages; the second is too long for a window.
    static QByteArray SmallBook();

    /// Three pages of four sections each.
    static QByteArray ThreeChapters();

    HelpWindowTest();

    void Write(const QByteArray& book);
    /// Opens the window and waits until it is in front.
    void Open();

    HelpPage& Page() { return Find<HelpPage>(window, QStringLiteral("Page")); }
    QTreeWidget& Contents() { return Find<QTreeWidget>(window, QStringLiteral("Contents")); }
    QLineEdit& SearchText() { return Find<QLineEdit>(window, QStringLiteral("SearchText")); }
    QAbstractButton& Button(const char* name) {
        return Find<QAbstractButton>(window, QString::fromLatin1(name));
    }
    QString Title() { return window.windowTitle().section(QStringLiteral(" - "), 0, 0); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Types words into the search.
    void SearchFor(const char* words);
    QStringList FoundPages();
    bool ShowsResults() { return Find<QWidget>(window, QStringLiteral("FoundPages")).isVisible(); }

    QString bookFile = Path(QStringLiteral("HelpFile/Small.hlp"));
    HelpWindow window;
};
