#pragma once

#include "accounts/AddIncentives.h"
#include "accounts/ChildrenList.h"
#include "accounts/DisplayAccount.h"
#include "tests/shell/ShellTest.h"

#include <QImage>

/// A fixture for the account view and the incentive editor: a family with one adult, Mum, and the
/// children Kim (80 points, a bike for 500) and Lee (30 points, no incentive).
class AccountsTest : public ShellTest {
protected:
    AccountsTest();

    /// The settings file, with or without a child's right to see the others.
    static void LetChildrenSeeOthers(bool allowed);

    /// A child with points and an incentive; "" and 0 for none. Its picture has the colour given.
    static void MakeChild(const QString& name, qint16 points, const QString& toy = QString(),
                          qint16 cost = 0, QRgb color = 0xff2266aa);

    /// The account view, opened in a session of that account.
    static DisplayAccount& OpenView(const QString& user = QStringLiteral("Mum"),
                                    const QString& state = QStringLiteral("Teacher"));
    static DisplayAccount& View() { return Default<DisplayAccount>(); }
    static ChildrenList& List();
    static void PressButton(const char* name);
    /// A press or a release of the mouse in the middle of a row of the view's list.
    static void MousePress(int row, Qt::MouseButton button = Qt::LeftButton);
    static void MouseRelease(int row);
    /// The form comes to the front again, from another form.
    static void ActivateAgain();

    static QString Text(const char* label);
    static bool Shown(const char* control);
    static QColor PictureColor(const char* label);
    /// Points, incentive's name and cost as the view has them, joined by "|".
    static QString Figures();

    /// What the store holds.
    static QString StoredPoints(const QString& name);
    static QString StoredToy(const QString& name);
    static QImage StoredToyPicture(const QString& name);
    static QColor StoredPictureColor(const QString& name);

    static const QString Kim;
    static const QString Lee;
};
