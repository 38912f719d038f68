#pragma once

/// Makes the forms of the reports known.
void RegisterReportForms();
