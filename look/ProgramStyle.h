#pragma once

class QApplication;

/// The look of the whole program: style, palette and style sheet. Forms mark their widgets by the
/// dynamic property "role": "heading", "primary" (the button that goes on), "card", "column",
/// "hint", "rows" (boxes in low rows).
void ApplyProgramStyle(QApplication& application);
