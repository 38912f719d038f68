#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class LoginWindow;
}

/// Takes the password for the account chosen and opens the session.
class LoginWindow : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::LoginWindow;

    LoginWindow();
    ~LoginWindow() override;

    /// The account's name and kind; set before the form is shown.
    QString LoginName;
    QString LoginState;

protected:
    void Activate() override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Ok_Click();
    void OpenSession(const QString& user);

    std::unique_ptr<Ui::LoginWindow> ui_;
};
