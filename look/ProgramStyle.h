#pragma once

#include <QRgb>

class QApplication;

/// Colours of the program's pictures, for what is painted beside them: of stars and of joy.
inline constexpr QRgb ProgramGold = 0xffffc533;
inline constexpr QRgb ProgramCoral = 0xffe4573d;
inline constexpr QRgb ProgramSky = 0xff4f9fd8;

/// The look of the whole program: style, palette and style sheet. Forms mark their widgets by the
/// dynamic property "role": "heading", "primary" (the button that goes on), "card", "hint",
/// "rows" (boxes in low rows).
void ApplyProgramStyle(QApplication& application);
