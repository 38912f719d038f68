#include "store/DatabaseCls.h"

#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/RuntimeError.h"

#include <QFileInfo>

DatabaseCls::DatabaseCls(ChartForms& forms) : forms_(forms) {}

DatabaseCls::~DatabaseCls() = default;

namespace {

QString DatabaseFile() {
    return InProgramFolder(QStringLiteral("Database/Charts.mdb"));
}

} // namespace

void DatabaseCls::OpenAhead() {
    if (const QString path = DatabaseFile(); QFileInfo(path).isFile())
        openedAhead_ =
            std::async(std::launch::async, [path] { return TableStore::OpenDatabase(path); });
}

void DatabaseCls::InitDatabse() {
    // What the former connection has written belongs to an action that was reported as done.
    Commit();
    const QString path = DatabaseFile();
    if (openedAhead_.valid())
        ChartDb = openedAhead_.get();
    else if (QFileInfo(path).isFile())
        ChartDb = TableStore::OpenDatabase(path);
    else
        ChartDb =
            TableStore::CreateDatabase(path, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
}

void DatabaseCls::Commit() {
    if (ChartDb)
        ChartDb->Commit();
}

TableStore& DatabaseCls::Tables() const {
    if (!ChartDb)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *ChartDb;
}
