#pragma once

#include <QFrame>

class FittingLabel;
class QMenuBar;
class QPushButton;
struct PrintNews;

/// The line beside the menus that tells what has become of a print, with a button that opens the
/// file where it has become one. It stays until the next action: a press of the mouse anywhere
/// else, or a key that does more than to move the keyboard.
class PrintLine : public QFrame {
    Q_OBJECT

public:
    explicit PrintLine(QMenuBar& menus);

    void Tell(const PrintNews& news);
    /// Gives the keyboard to the button. False if there is none to be seen.
    bool TakeKeyboard();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// At the right end of the menus' row.
    void Place();
    bool IsNextAction(const QWidget& at, const QEvent& event) const;

    QMenuBar& menus_;
    FittingLabel* text_;
    QPushButton* open_;
    /// What the button opens.
    QString file_;
};

/// Makes the line known to screen readers as news.
void InstallPrintLineAccess();
