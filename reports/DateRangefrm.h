#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <QDate>
#include <memory>

namespace Ui {
class DateRangefrm;
}

/// Collects the first and the last day of a report, one after the other from one calendar, and
/// gives them to the report form.
class DateRangefrm : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::DateRangefrm;

    DateRangefrm();
    ~DateRangefrm() override;

    QDate StartDate;
    QDate EndDate;
    /// The day on which the form was opened.
    qint16 CalDay = 0;
    qint16 CalMonth = 0;
    qint16 CalYear = 0;

protected:
    void Load() override;
    void Activate() override;

private:
    void ShowCalendar();
    void HideCalendar();
    /// Places in pixels of the form, its height in twips.
    void Arrange(int height, int exitTop, int okTop, int frameHeight);
    void Ok_Click();
    void cmdExit_Click();

    std::unique_ptr<Ui::DateRangefrm> ui_;
};
