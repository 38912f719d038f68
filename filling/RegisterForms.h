#pragma once

/// Makes the forms of this room known, and how the session's array of chart viewers makes one.
void RegisterFillingForms();
