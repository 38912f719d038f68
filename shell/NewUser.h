#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class NewUser;
}

/// Adds an account.
class NewUser : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::NewUser;

    NewUser();
    ~NewUser() override;

    /// The path of the picture chosen, "" until one is chosen.
    QString PictureFile;

protected:
    void Activate() override;

private:
    void BrowsePicture();
    void Ok_Click();
    void TellWhatIsMissing(const QString& name, const QString& password);

    std::unique_ptr<Ui::NewUser> ui_;
    /// The file name that the open-file dialog holds; cancelling it keeps the former one.
    QString browseFileName_;
};
