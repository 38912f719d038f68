#pragma once

/// Makes the forms of all rooms known, each under its name, and what else of a room the others
/// reach without seeing it: the makers of charts' windows, the weekly review, what the settings
/// show in, the roles that screen readers hear of.
void RegisterForms();

/// Those of one room, for tests that have put something else in the place of its makers.
void RegisterAuthoringForms();
void RegisterFillingForms();
