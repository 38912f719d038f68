#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class LogIn;
}

/// The start-up form: the accounts in two lists, the switch between the home and the school
/// version, and the ways to new accounts, changes, help and the web page.
class LogIn : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::LogIn;

    LogIn();
    ~LogIn() override;

    /// 0 no list touched yet, 1 the adults' list, 2 the children's list.
    qint16 ActiveList = 0;

    /// Selects the option of the school or of the home version. The handler of an option that
    /// was not selected runs before this returns.
    void SelectVersion(bool school);

protected:
    void Load() override;
    void Activate() override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct SelectedUser {
        QString Name;
        QString State;
    };

    void FitToScreen();
    void ClearAccounts();
    void ListAccounts();
    void ShowPictureAgain();
    void SetListHeaders();
    SelectedUser ReturnSelectedUser() const;
    void List_Click(qint16 list);
    void LogInbtn_Click();
    void ChangeP_Click();
    void Version_Click(bool school);
    void WelcomeOnFirstRun();

    std::unique_ptr<Ui::LogIn> ui_;
    /// Whose picture Image1 shows; "" before the first click.
    QString pictured_;
};
