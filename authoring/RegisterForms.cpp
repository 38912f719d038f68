#include "authoring/RegisterForms.h"

#include "authoring/ChartEditor.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/DropDownCombo.h"
#include "authoring/Newfrm.h"
#include "authoring/Openfrm.h"
#include "authoring/ResetDate.h"
#include "platform/forms/DefaultForms.h"
#include "shell/session/Session.h"

void RegisterAuthoringForms() {
    InstallComboAccess();
    RegisterFormClass<ChartEditor>();
    RegisterFormClass<Newfrm>();
    RegisterFormClass<Openfrm>();
    RegisterFormClass<DeleteChartForm>();
    RegisterFormClass<ResetDate>();
    RegisterFormClass<DisplayAllPeople>();
    ChartEditors.SetMaker([] {
        auto* editor = new ChartEditor;
        return FormSlots<ChartEditorRows>::Slot{editor, editor};
    });
}
