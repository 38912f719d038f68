#include "reports/RegisterForms.h"

#include "platform/forms/DefaultForms.h"
#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"

void RegisterReportForms() {
    RegisterFormClass<Reportfrm>();
    RegisterFormClass<DateRangefrm>();
}
