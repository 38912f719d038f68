#pragma once

#include <QList>
#include <QString>
#include <QWidget>

class QAction;
class QLabel;
class QVBoxLayout;

/// What an empty main window tells its user: a greeting, and what can be done from here.
struct Greeting {
    /// One of the main window's commands.
    struct Step {
        QAction* command = nullptr;
        QString name;
        QString text;
        /// The key that does it; "" for none.
        QString key;
        /// For children: a large icon beside a large name.
        bool isLarge = false;

        bool operator==(const Step&) const = default;
    };

    QString greeting;
    QString question;
    QList<Step> steps;

    bool operator==(const Greeting&) const = default;
};

/// The greeting as a card with a button for each step, and the program's logo above it.
class WelcomePage : public QWidget {
    Q_OBJECT

public:
    explicit WelcomePage(QWidget* parent);

    void SetGreeting(const Greeting& greeting);
    bool IsEmpty() const { return greeting_.steps.isEmpty(); }

    /// Shows the page in the middle of the area, the logo where it is wanted and there is room for
    /// both. Hides it where there is not even room for the card.
    void ShowIn(const QRect& area, bool wantsLogo);

    /// Gives the keyboard to the first button. False if the page is not shown.
    bool TakeKeyboard();

private:
    void MakeCard();

    Greeting greeting_;
    QVBoxLayout* layout_;
    QLabel* logo_;
    QWidget* card_ = nullptr;
};
