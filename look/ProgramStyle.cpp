#include "look/ProgramStyle.h"

#include "look/DutygridStyle.h"
#include "look/LookColors.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

using namespace LookColors;

namespace {

// "@name" is a colour of LookColors. Lengths are logical pixels.
const char StyleSheet[] = R"(
QLabel[role="heading"] { font-size: 15pt; font-weight: 600; color: @deep; }
QLabel[role="hint"] { color: @muted; }
QLabel[role="greeting"] { font-size: 18pt; font-weight: 600; color: @deep; }
QLabel[role="question"] { font-size: 11pt; color: @muted; }
QFrame[role="welcome"] { background: @card; border: 1px solid @line; border-radius: 12px; }
QLabel[role="column"] { font-weight: 600; color: @deep; }
QFrame[role="card"] { background: @card; border: 1px solid @line; border-radius: 8px; }
QPushButton {
    background: @card; color: @ink; border: 1px solid @outline; border-radius: 6px;
    padding: 5px 14px; min-height: 1.3em;
}
/* 88 with padding and edge. A longer caption must not be squeezed to it, as the least width of all
   buttons would let it; the toolkit's boxes have none. By the caption, which no form can forget. */
QDialogButtonBox QPushButton, QPushButton[text="Ok"], QPushButton[text="Cancel"],
QPushButton[text="Exit"], QPushButton[text="Close"], QPushButton[text="&Close"],
QPushButton[text="Yes"], QPushButton[text="No"], QPushButton[text="Add"] { min-width: 58px; }
QPushButton:hover { background: @honey; }
QPushButton:pressed { background: @honeydark; }
QPushButton:focus { border: 2px solid @teal; padding: 4px 13px; }
/* As wide, with an arrow. */
QPushButton[text="Log in"] { padding: 5px 11px; min-width: 64px; }
QPushButton[text="Log in"]:focus { padding: 4px 10px; }
QPushButton:disabled { color: @unusable; border-color: @line; }
QPushButton[role="primary"] { background: @teal; border-color: @tealpressed; color: @card;
    font-weight: 600; }
QPushButton[role="primary"]:hover { background: @tealhover; }
QPushButton[role="primary"]:pressed { background: @tealpressed; }
QPushButton[role="primary"]:focus { border: 2px solid @tealpressed; }
QPushButton[role="primary"]:disabled { background: @band; border-color: @line; color: @unusable; }
QLineEdit, QComboBox, QListView, QTreeView, QTextBrowser {
    background: @card; color: @ink; border: 1px solid @outline; border-radius: 4px;
    selection-background-color: @teal; selection-color: @card;
}
QLineEdit { padding: 3px 5px; }
QLineEdit:focus, QComboBox:focus, QListView:focus, QTreeView:focus, QTextBrowser:focus {
    border: 2px solid @teal; }
QLineEdit:focus { padding: 2px 4px; }
QComboBox QListView { border-radius: 0; padding: 0; }
QHeaderView::section {
    background: @band; color: @deep; font-weight: 600; padding: 5px 8px; border: 0;
    border-bottom: 1px solid @outline;
}
/* 28 high with the least height of DutygridStyle, 40 where children choose. */
QListView::item, QTreeView::item { padding: 4px 0; }
QListView[role="large"]::item { padding: 10px 0; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
/* Beside a group, as high as its frame. */
QFrame[role="golden"] { background: @gold; border: 0; border-radius: 2px; margin-top: 1.3em; }
QFrame[role="band"] { background: @band; border: 0; border-bottom: 1px solid @line; }
QFrame[role="line"] { background: @line; border: 0; }
/* What children read of a job. */
RowText, PointsText { font-size: 12.5pt; }
QToolTip { background: @card; color: @ink; border: 1px solid @outline; padding: 3px 6px; }
/* A month's name opens a menu; it needs no triangle beside the arrows. */
QWidget#qt_calendar_navigationbar { background: @card; }
QCalendarWidget QToolButton { border: 1px solid transparent; border-radius: 6px;
    padding: 3px 8px; color: @deep; font-weight: 600; }
QCalendarWidget QToolButton::menu-indicator { image: none; }
QCalendarWidget QToolButton:hover { background: @honey; }
QCalendarWidget QToolButton:focus { border-color: @teal; }
/* Stands in the place of the year while one writes in it. */
QCalendarWidget QSpinBox { background: @card; color: @deep; font-weight: 600; padding: 0 4px;
    border: 2px solid @teal; border-radius: 6px; selection-background-color: @teal;
    selection-color: @card; }
/* Rows that are 22 pixels high, whatever the font. */
QWidget[role="rows"] QLineEdit, QWidget[role="rows"] QComboBox { padding: 0 4px; }
QWidget[role="rows"] QLineEdit:focus { padding: 0 3px; }
QWidget[role="rows"] QComboBox::drop-down { border: 0; width: 18px; }
QWidget[role="rows"] QComboBox QLineEdit { border: 0; padding: 0; }
/* Nobody is to be drawn to a row's only button, which deletes it. */
QWidget[role="rows"] QPushButton { padding: 0 4px; min-height: 0; border-radius: 4px;
    border-color: transparent; }
QWidget[role="rows"] QPushButton:hover { border-color: @coral; }
QWidget[role="rows"] QPushButton:focus { padding: 0 3px; border-color: @teal; }
/* In the row of the menus. */
QFrame[role="news"] { background: @tealpale; border: 0; border-radius: 6px; }
QFrame[role="news"] QPushButton { padding: 0 8px; min-height: 0; border-radius: 4px; }
QFrame[role="news"] QPushButton:focus { padding: 0 7px; }
/* The bar's own padding is the same for each room: the toolkit asks for it once. */
QToolBar { background: @card; border: 0; border-bottom: 1px solid @line; spacing: 2px;
    padding: 2px; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 6px; padding: 6px 8px;
    font-size: 11pt; }
QToolBar[room="medium"] QToolButton { padding: 0 8px; }
QToolBar[room="low"] QToolButton { padding: 4px 8px; }
QToolBar[room="small"] QToolButton { padding: 4px 2px; font-size: 10pt; }
QToolBar QToolBarExtension { padding: 0; min-width: 18px; }
QToolBar QToolButton:hover { background: @honey; border-color: @line; }
QToolBar QToolButton:pressed { background: @honeydark; }
QToolBar QToolButton:focus { border-color: @teal; background: @tealpale; }
)";

QString FilledStyleSheet() {
    struct NamedColor {
        QLatin1String name;
        QColor color;
    };
    // Longer names first: "@teal" begins others.
    const NamedColor colors[] = {{QLatin1String("@tealpressed"), TealPressed},
                                 {QLatin1String("@tealhover"), TealHover},
                                 {QLatin1String("@tealpale"), TealPale},
                                 {QLatin1String("@honeydark"), HoneyDark},
                                 {QLatin1String("@unusable"), Unusable},
                                 {QLatin1String("@outline"), Outline},
                                 {QLatin1String("@honey"), Honey},
                                 {QLatin1String("@coral"), Coral},
                                 {QLatin1String("@muted"), Muted},
                                 {QLatin1String("@teal"), Teal},
                                 {QLatin1String("@deep"), Deep},
                                 {QLatin1String("@card"), Card},
                                 {QLatin1String("@band"), Band},
                                 {QLatin1String("@gold"), Gold},
                                 {QLatin1String("@line"), Line},
                                 {QLatin1String("@ink"), Ink}};
    QString sheet = QString::fromLatin1(StyleSheet);
    for (const NamedColor& named : colors)
        sheet.replace(named.name, named.color.name());
    return sheet;
}

QPalette ProgramPalette() {
    // Every colour from these two, whatever the desktop's are; then the ones that differ.
    QPalette palette(Card, Paper);
    palette.setColor(QPalette::WindowText, Ink);
    palette.setColor(QPalette::Base, Card);
    palette.setColor(QPalette::AlternateBase, Band);
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::BrightText, Card);
    palette.setColor(QPalette::Button, Card);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::Mid, Outline);
    palette.setColor(QPalette::Highlight, Teal);
    palette.setColor(QPalette::HighlightedText, Card);
    palette.setColor(QPalette::PlaceholderText, Muted);
    palette.setColor(QPalette::ToolTipBase, Card);
    palette.setColor(QPalette::ToolTipText, Ink);
    palette.setColor(QPalette::Link, Deep);
    palette.setColor(QPalette::LinkVisited, Deep);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Unusable);
    // Fusion draws a disabled menu entry twice, the second time in this colour.
    palette.setColor(QPalette::Disabled, QPalette::Light, Card);
    return palette;
}

} // namespace

void ApplyProgramStyle(QApplication& application) {
    // As English is written, whatever language a desktop's part of the toolkit brings along.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setStyle(new DutygridStyle);
    const QPalette palette = ProgramPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    application.setStyleSheet(FilledStyleSheet());
}
