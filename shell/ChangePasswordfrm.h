#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class ChangePasswordfrm;
}

/// Changes an account's password, or its picture.
class ChangePasswordfrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::ChangePasswordfrm;

    ChangePasswordfrm();
    ~ChangePasswordfrm() override;

    /// The account to change; set before the form is shown.
    QString AccountName;

protected:
    void Activate() override;

private:
    void BrowsePicture();
    void Ok_Click();

    std::unique_ptr<Ui::ChangePasswordfrm> ui_;
    /// The file name that the open-file dialog holds; cancelling it keeps the former one.
    QString opFileName_;
};
