#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class frmAboutDutygrid;
}

/// Tells what the program is and who makes it, and opens the product's web page.
class frmAboutDutygrid : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::frmAboutDutygrid;

    frmAboutDutygrid();
    ~frmAboutDutygrid() override;

protected:
    void Activate() override;

private:
    std::unique_ptr<Ui::frmAboutDutygrid> ui_;
};
