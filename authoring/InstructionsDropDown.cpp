#include "authoring/InstructionsDropDown.h"

#include "authoring/ComboLists.h"
#include "platform/runtime/TextFiles.h"
#include "session/Session.h"
#include "store/JobNameFile.h"

void InstructionsDropDown::ReceveInstructions(QComboBox& List) const {
    const KeptText kept(List);
    List.clear();
    InputFile file(JobNameFile(Version::CountsAsSchool(SchoolMode)));
    while (!file.AtEnd())
        List.addItem(file.InputText());
}

void InstructionsDropDown::AddInstructions(const QComboBox& List) const {
    OutputFile file(JobNameFile(Version::CountsAsSchool(SchoolMode)));
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
