#pragma once

/// Makes the forms of this room known, and how the store reaches the weekly review.
void RegisterReportForms();
