#pragma once

#include <QtGlobal>
#include <functional>

class ChartEditor;

/// The editor in a slot of ChartEditors, null if it has been closed. Raises 9 outside the slots.
ChartEditor* EditorInSlot(qint16 formIndex);

/// Makes an editor in the next slot, lets `open` set it up and show it, and counts the slot as
/// filled. If `open` raises, the editor goes again and the slot stays free.
void OpenEditorInNextSlot(const std::function<void(ChartEditor&)>& open);
