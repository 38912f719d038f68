#pragma once

/// To be run before the application is made. GNOME leaves the title bars of Wayland windows to the
/// programs, and the toolkit draws them only where it finds drivers for graphics. The X server that
/// GNOME has as well draws them always: it is taken first where nobody has chosen otherwise.
void PreferWindowsWithTitleBars();
