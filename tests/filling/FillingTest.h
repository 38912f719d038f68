#pragma once

#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <QPushButton>
#include <QScrollBar>

/// A child, Anna, logged in on Wednesday 7 March 2001 with the sound on. Charts run from Sunday
/// 4 to Saturday 10 March.
class FillingTest : public FormTest {
protected:
    FillingTest();

    struct Job {
        QString text;
        QString day;
        QString points = QStringLiteral("5");
        QString adult = QStringLiteral("Mum");
        QString difficulty = QStringLiteral("Easy");
    };
    static void MakeChart(const QString& name, const QList<Job>& jobs,
                          const QString& owner = QStringLiteral("Anna"),
                          QDate first = QDate(2001, 3, 4), QDate last = QDate(2001, 3, 10),
                          bool autoCreate = true);
    /// As many jobs of one day.
    static QList<Job> JobsOn(const QString& day, int count);

    /// Shows the list of charts, as the menu does.
    static OpenFillfrm& ShowList();
    /// Picks a chart in the list by its name and presses Ok.
    static void Pick(const QString& chart);
    /// Opens a chart by way of the list and gives its viewer after its first activation.
    ChartViewer& OpenChart(const QString& chart);
    /// The viewer in a slot, null if there is none.
    static ChartViewer* ViewerAt(int slot);

    static QString TextAt(const QWidget& form, const QString& label);
    static QPushButton& Button(const QWidget& form, const QString& name);
    static QScrollBar& Scroll(const ChartViewer& viewer);
    /// The jobs on display.
    static QStringList Jobs(const ChartViewer& viewer);
    /// The Completed fields of a chart's rows: "job|day" of those that are ticked.
    static QStringList Ticked(const QString& chart);
    /// The account's points.
    static QString PointsIn(const QString& account = QStringLiteral("Anna"));
    /// Sets an account's incentive; "" as the picture's file for none.
    static void SetGoal(const QString& name, qint16 cost, const QString& picture = QString(),
                        const QString& account = QStringLiteral("Anna"));
    static void SetPoints(qint16 points, const QString& account = QStringLiteral("Anna"));

    QString Sound(const QString& file, int flags) const;
    QString PageSound() const { return Sound(QStringLiteral("Draw.wav"), 1); }
    QString MarkSound() const { return Sound(QStringLiteral("turn.wav"), 0x20001); }
    QString ApplauseSound() const { return Sound(QStringLiteral("applause.wav"), 0x20001); }

    inline static const QString ListQuestion = QStringLiteral(
        "You can use only one Dutygrid at a time.  Would you like to close the Dutygrid you are "
        "working on?");
    inline static const QString GoalMessage = QStringLiteral(
        "Your goal has been reached, check with your parent to receive your reward.");
    inline static const QString TooFewPoints =
        QStringLiteral("Sorry you have insufficient points to clear the account");
};
