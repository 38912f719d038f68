#pragma once

#include <QIcon>
#include <QList>
#include <QRect>
#include <QString>

class QPainter;
class QWidget;

/// What an empty main window tells the user: a greeting, and what can be done from here.
struct WelcomePage {
    struct Step {
        QIcon icon;
        QString name;
        QString text;
        /// The key that does it; "" for none.
        QString key;
    };

    QString greeting;
    QString question;
    QList<Step> steps;

    bool IsEmpty() const { return steps.isEmpty(); }

    /// Paints the page as a card in the middle of the area, and the program's logo above it where
    /// there is room for both. Nothing where there is not even room for the card.
    void Paint(QPainter& painter, const QRect& area, const QWidget& onWidget) const;
};
