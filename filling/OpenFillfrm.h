#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class OpenFillfrm;
}

/// Where a child picks one of this week's charts and opens it for filling.
class OpenFillfrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::OpenFillfrm;

    OpenFillfrm();
    ~OpenFillfrm() override;

    /// The entry selected, of several the last; "" if none is.
    QString SelectedChart() const;

    /// Yesterday as a day of the chart viewer, 1 Sunday to 7 Saturday.
    static qint16 DayBeforeToday();

protected:
    void Activate() override;

private:
    void Ok_Click();
    bool CloseChartInUse();
    void OpenViewer(const QString& name);

    std::unique_ptr<Ui::OpenFillfrm> ui_;
};
