#include "authoring/InstructionsDropDown.h"

#include "authoring/ComboLists.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/TextFiles.h"
#include "shell/session/Session.h"

namespace {

QString JobsFile() {
    return InProgramFolder(SchoolMode != 0 ? QStringLiteral("Jobs/SchoolJobs.dat")
                                           : QStringLiteral("Jobs/HomeJobs.dat"));
}

} // namespace

void InstructionsDropDown::ReceveInstructions(QComboBox& List) const {
    const KeptText kept(List);
    List.clear();
    InputFile file(JobsFile());
    while (!file.AtEnd())
        List.addItem(file.InputText());
}

void InstructionsDropDown::AddInstructions(const QComboBox& List) const {
    OutputFile file(JobsFile());
    QString last;
    for (int index = 0; index < List.count(); ++index) {
        const QString name = List.itemText(index);
        if (name == last || name.isEmpty())
            continue;
        file.PrintText(name);
        last = name;
    }
    file.Close();
}
