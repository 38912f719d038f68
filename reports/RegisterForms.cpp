#include "reports/RegisterForms.h"

#include "platform/forms/DefaultForms.h"
#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"
#include "reports/WeekChartRepresentation.h"
#include "shell/session/Session.h"

void RegisterReportForms() {
    RegisterFormClass<Reportfrm>();
    RegisterFormClass<DateRangefrm>();
    RegisterFormClass<WeekChartRepresentation>();
    WeeklyReview = []() -> ChartMatrix& { return Default<WeekChartRepresentation>(); };
}
