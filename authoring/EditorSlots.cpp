#include "authoring/EditorSlots.h"

#include "authoring/ChartEditor.h"
#include "platform/runtime/Numbers.h"
#include "session/Session.h"

ChartEditor* EditorInSlot(qint16 formIndex) {
    return dynamic_cast<ChartEditor*>(ChartEditors.Peek(formIndex));
}

void OpenEditorInNextSlot(const std::function<void(ChartEditor&)>& open) {
    ChartEditors.RedimPreserve(ChartFormIndex);
    auto& editor = dynamic_cast<ChartEditor&>(ChartEditors.At(ChartFormIndex));
    try {
        open(editor);
        ChartFormIndex = AddIntegers(ChartFormIndex, 1);
    } catch (const RuntimeError&) {
        // A half-filled editor left behind would be saved over the whole chart.
        editor.Abandon();
        throw;
    }
}
