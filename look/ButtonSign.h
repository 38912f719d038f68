#pragma once

class QPushButton;

/// Draws beside a button's caption what its property "sign" names: an arrow "back" before it, an
/// arrow "next" after it, or a "tick". As high as the font, in the colour of the button's role. A
/// child that does not read yet goes by it. A button with an icon of its own gets no sign, and a
/// later change of "sign" is ignored.
void DrawSignOf(QPushButton& button);
