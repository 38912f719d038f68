#include "platform/forms/ProgramStyle.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace {

// Dark slate on warm paper (13:1), white on teal (5.5:1), muted slate on paper (6.4:1).
const QColor Ink(0x26, 0x32, 0x38);
const QColor Paper(0xfb, 0xf6, 0xec);
const QColor Card(0xff, 0xff, 0xff);
const QColor Teal(0x0b, 0x72, 0x6e);
const QColor Unusable(0x8d, 0x8b, 0x86);
const QColor Muted(0x54, 0x62, 0x69);

const char StyleSheet[] = R"(
QLabel[role="heading"] { font-size: 15pt; font-weight: 600; color: #0b5f5c; }
QLabel[role="hint"] { color: #546269; }
QFrame[role="card"], QGroupBox {
    background: #ffffff; border: 1px solid #dccfb6; border-radius: 8px;
}
QGroupBox { margin-top: 1.3em; padding-top: 4px; }
QGroupBox::title {
    subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #0b5f5c; font-weight: 600;
}
QPushButton {
    background: #ffffff; border: 1px solid #8a8069; border-radius: 6px; padding: 5px 14px;
    min-height: 1.3em;
}
QPushButton:hover { background: #fff3d6; }
QPushButton:pressed { background: #ffe4a8; }
QPushButton:focus { border: 2px solid #0b726e; padding: 4px 13px; }
QPushButton:disabled { color: #8d8b86; border-color: #cfc8b8; }
QPushButton[role="primary"] { background: #0b726e; border-color: #08534f; color: #ffffff;
    font-weight: 600; }
QPushButton[role="primary"]:hover { background: #0a625f; }
QPushButton[role="primary"]:pressed { background: #084f4c; }
QPushButton[role="primary"]:focus { border: 2px solid #f2a900; }
QPushButton[role="primary"]:disabled { background: #b9c9c7; border-color: #a9b9b7; }
QLineEdit, QComboBox, QListView, QTreeView, QTextBrowser {
    background: #ffffff; border: 1px solid #8a8069; border-radius: 4px;
    selection-background-color: #0b726e; selection-color: #ffffff;
}
QLineEdit { padding: 2px 5px; }
QLineEdit:focus, QComboBox:focus, QListView:focus, QTreeView:focus, QTextBrowser:focus {
    border: 2px solid #0b726e; }
QHeaderView::section {
    background: #f6efdf; color: #0b5f5c; font-weight: 600; padding: 5px 8px; border: 0;
    border-bottom: 1px solid #8a8069;
}
QListView::item, QTreeView::item { padding: 4px 6px; }
QListView[role="pictures"]::item {
    border: 2px solid transparent; border-radius: 8px; padding: 4px;
}
QListView[role="pictures"]::item:selected {
    background: #d9ebe8; border-color: #0b726e; color: #263238;
}
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox QPushButton { min-width: 5em; }
QMenu::separator { height: 1px; background: #dccfb6; margin: 4px 8px; }
/* The rows of the chart editor are 22 pixels high, whatever the font. */
QWidget#Rows QLineEdit, QWidget#Rows QComboBox { padding: 0 4px; }
QWidget#Rows QComboBox::drop-down { border: 0; width: 18px; }
QWidget#Rows QPushButton { padding: 0 4px; min-height: 0; border-radius: 4px; }
QWidget#Rows QPushButton:focus { padding: 0 3px; }
QToolBar { background: #fffdf8; border: 0; border-bottom: 1px solid #dccfb6; spacing: 2px;
    padding: 4px; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 6px; padding: 4px 8px; }
QToolBar QToolButton:hover { background: #fff3d6; border-color: #dccfb6; }
QToolBar QToolButton:pressed { background: #ffe4a8; }
QToolBar QToolButton:focus { border: 2px solid #0b726e; }
)";

} // namespace

void ApplyProgramStyle(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(Ink, Paper);
    palette.setColor(QPalette::Window, Paper);
    palette.setColor(QPalette::WindowText, Ink);
    palette.setColor(QPalette::Base, Card);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xef, 0xdf));
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::Button, Card);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::Highlight, Teal);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, Muted);
    palette.setColor(QPalette::ToolTipBase, Card);
    palette.setColor(QPalette::ToolTipText, Ink);
    palette.setColor(QPalette::Link, Teal);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Unusable);
    // Fusion draws a disabled menu entry twice, the second time in this colour.
    palette.setColor(QPalette::Disabled, QPalette::Light, Card);
    QApplication::setPalette(palette);
    application.setStyleSheet(QString::fromLatin1(StyleSheet));
}
