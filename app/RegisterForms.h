#pragma once

/// Make the forms of the rooms known, each under its name, and what else of a room the others reach
/// without seeing it: the makers of charts' windows, the weekly review, what the settings show in,
/// the roles that screen readers hear of.

void RegisterShellForms();
void RegisterAccountForms();
void RegisterAuthoringForms();
void RegisterFillingForms();
void RegisterReportForms();

/// All of them.
void RegisterForms();
