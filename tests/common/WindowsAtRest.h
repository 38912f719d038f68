#pragma once

/// Lets events run until the windows have come to rest: until the window manager has seen all that
/// was asked of the display, all that it did then has come back and been worked on, and nothing
/// came of it. At most about two seconds.
void LetWindowsRest();
