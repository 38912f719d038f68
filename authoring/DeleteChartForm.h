#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class DeleteChartForm;
}

/// Confirms the deletion of the chart in an editor.
class DeleteChartForm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::DeleteChartForm;

    DeleteChartForm();
    ~DeleteChartForm() override;

    QString ChartName;
    /// The editor's slot in ChartEditors.
    qint16 FormIndex = 0;

protected:
    void Activate() override;

private:
    void Yes_Click();

    std::unique_ptr<Ui::DeleteChartForm> ui_;
};
