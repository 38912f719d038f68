#pragma once

class QPushButton;

/// Draws beside a button's caption what its property "sign" names: an arrow "back" before it, an
/// arrow "next" after it, or a "tick". As high as the font, in the colour of the button's role. A
/// child that does not read yet goes by it.
void DrawSignOf(QPushButton& button);
