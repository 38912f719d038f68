#pragma once

class QApplication;

/// The look of the whole program: style, palette and style sheet. Forms mark their widgets by the
/// dynamic property "role":
/// - labels: "heading", "column" (the head of one), "hint" (explains), "greeting", "question";
/// - buttons: "primary" (goes on);
/// - frames: "card", "welcome" (the greeting's card), "band", "line" (separates), "golden" (beside
///   a group), "news" (of a print);
/// - lists: "large" (children choose in it);
/// - what holds low rows of boxes: "rows".
/// Of other properties a button has "sign" (ButtonSign.h) and "leaves" (FormKeys.h), a toolbar that
/// is not as large as it likes "room": "medium", "low" or "small".
void ApplyProgramStyle(QApplication& application);
