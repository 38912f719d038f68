#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class Newfrm;
}

/// Takes the name of a new chart and opens an editor on it. Stays loaded after a success.
class Newfrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::Newfrm;

    Newfrm();
    ~Newfrm() override;

protected:
    void Activate() override;

private:
    void Ok_Click();

    std::unique_ptr<Ui::Newfrm> ui_;
    /// The message about a name in use is coming back and back.
    bool insisting_ = false;
};
