#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class OtherOptions;
}

/// Sets whether a child may look at the other children's accounts.
class OtherOptions : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::OtherOptions;

    OtherOptions();
    ~OtherOptions() override;

protected:
    void Activate() override;

private:
    void Ok_Click();

    std::unique_ptr<Ui::OtherOptions> ui_;
};
