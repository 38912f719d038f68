#pragma once

/// Where the keyboard is meant to be while windows come to rest.
enum class Keyboard { InTheProgram, InAnotherProgram };

/// Lets events run until the windows have come to rest: until the window manager has seen all that
/// was asked of the display, all that it did then has come back and been worked on, nothing came of
/// it, and the keyboard is where it is meant to be. Fails the test if they stay restless.
void LetWindowsRest(Keyboard keyboard = Keyboard::InTheProgram);
