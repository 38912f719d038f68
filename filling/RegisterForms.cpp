#include "filling/RegisterForms.h"

#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "filling/ViewerAccess.h"
#include "platform/forms/DefaultForms.h"
#include "shell/session/Session.h"

void RegisterFillingForms() {
    InstallViewerAccess();
    RegisterFormClass<OpenFillfrm>();
    RegisterFormClass<ChartViewer>();
    ChartViewers.SetMaker([] {
        auto* viewer = new ChartViewer;
        return FormSlots<ChartViewerRows>::Slot{viewer, viewer};
    });
}
