#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class ResetDate;
}

/// Moves the chart in an editor to the week that holds today, or to the next. The new week
/// reaches the chart's table when the editor is saved.
class ResetDate : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::ResetDate;

    ResetDate();
    ~ResetDate() override;

    /// The editor's slot in ChartEditors.
    qint16 FormIndex = 0;
    QString ChartName;
    /// Today does not lie within the chart's week.
    bool OutsideChartWeek = false;

protected:
    void Activate() override;

private:
    void ok_Click();

    std::unique_ptr<Ui::ResetDate> ui_;
};
