#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class AddIncentives;
}

/// Gives a child an incentive, or adds points to its account by hand.
class AddIncentives : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::AddIncentives;

    AddIncentives();
    ~AddIncentives() override;

    /// The account to write to; set before the form is shown. "" writes to none.
    QString AccountName;

protected:
    void Load() override;
    void Activate() override;

private:
    void Command1_Click();
    void AddIncentive_Click();
    void AddPoints_Click();
    void Close_Click();

    std::unique_ptr<Ui::AddIncentives> ui_;
    /// The file name that the open-file dialog holds; cancelling it empties the name.
    QString opFileName_;
};
