#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class Openfrm;
}

/// Chooses a stored chart, of any child and any week, and opens an editor on it.
class Openfrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::Openfrm;

    Openfrm();
    ~Openfrm() override;

    /// The entry selected, "" if none.
    QString SelectedChart() const;

protected:
    void Activate() override;

private:
    void Ok_Click();

    std::unique_ptr<Ui::Openfrm> ui_;
};
