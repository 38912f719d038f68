#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class DisplayAccount;
}

/// Shows the points and the incentive of a child's account. An adult sees every child and all
/// actions; a child its own account, and the others' where the settings allow it.
class DisplayAccount : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::DisplayAccount;

    DisplayAccount();
    ~DisplayAccount() override;

    /// Tells, until the next action, what has just been stored for an account.
    void ShowStored(const QString& account, const QString& what);

protected:
    /// Also the form's refresh: each action ends in it.
    void Activate() override;

private:
    QString ReturnSelectedStudent() const;
    void FillList();
    void EmptyFigures();
    void ShowAccount(const QString& account);
    void ShowForAdult();
    void ShowForChild();
    void ShowWay();
    void StudentsList_Click();
    void StudentsList_MouseDown(Qt::MouseButton button, QTreeWidgetItem* row);
    void Command1_Click();
    void cmdReset_Click();
    void Infobtn_Click();
    void Incentivesbtn_Click();
    void cmdChgPic_Click();

    std::unique_ptr<Ui::DisplayAccount> ui_;
};

/// Lets the account view tell what has been stored, once it is: an account's "incentive" or
/// "picture". Nothing if that view is not open, or the account is nobody's.
void TellStored(const QString& account, const QString& what);
