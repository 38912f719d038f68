#pragma once

/// Makes the forms of this room known, and ties the sounds to the main window's switch.
void RegisterShellForms();
