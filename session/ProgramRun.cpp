#include "session/ProgramRun.h"

#include "platform/printing/PrintNews.h"
#include "platform/printing/Printer.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "platform/runtime/WeekdayNames.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "store/DailyCopies.h"
#include "support/SoundFunctions.h"

namespace {

void Take(const Surroundings& surroundings) {
    SetPrompts(surroundings.Boxes);
    SetDesktop(surroundings.Desktop);
    SetPrintTarget(surroundings.Paper);
    SetProgramFolder(surroundings.ProgramFolder);
    SetToday(surroundings.Today);
    KeepDailyCopies(surroundings.KeepsDailyCopies);
    SetEndProcess(surroundings.End);
}

} // namespace

ProgramRun::ProgramRun(const Surroundings& surroundings) {
    Take(surroundings);
}

ProgramRun::~ProgramRun() {
    ResetSession();
    ChartEditors.SetMaker({});
    ChartViewers.SetMaker({});
    WeeklyReview = {};
    SetWeekdayNames({});
    SetSettingsForms(nullptr);
    SetSoundSwitch({});
    SetPrintNews({});
    Take({});
}
