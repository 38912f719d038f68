#include "store/DatabaseCls.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/Progress.h"
#include "platform/runtime/RuntimeError.h"
#include "platform/tables/Damage.h"
#include "store/DailyCopies.h"
#include "store/NewDatabase.h"
#include "store/ProgramFiles.h"

#include <QDir>
#include <QFileInfo>

DatabaseCls::DatabaseCls(ChartForms& forms) : forms_(forms) {}

DatabaseCls::~DatabaseCls() = default;

namespace {

QString WayBack(const QString& path) {
    return QStringLiteral("The file with your accounts and Dutygrids is damaged:\n%1\n\n"
                          "Start \"Sparkit Dutygrid Restore\" to get back what it held on an "
                          "earlier day.")
        .arg(QDir::toNativeSeparators(path));
}

std::shared_ptr<TableStore> Open(const QString& path) {
    return TableStore::OpenDatabase(path, [](int done, int all) {
        ReportProgress(QStringLiteral("Your Dutygrids are moved into a faster file..."), done, all);
    });
}

/// The engine itself would follow a link, and wait for a pipe in the place of its journal for ever.
void RefuseLinksAndPipes(const QString& path) {
    for (const QString& part : {path, path + QStringLiteral("-journal")}) {
        const QFileInfo file(part);
        const bool isOther = part != path && file.exists() && !file.isFile();
        if (file.isSymLink() || isOther)
            throw WriteFault(ErrorNumber::PathFileAccessError, part);
    }
}

} // namespace

void DatabaseCls::InitDatabse() {
    // What the former connection has written belongs to an action that was reported as done.
    Commit();
    SetDamageAdvice(WayBack);
    const QString path = DatabaseFile();
    RefuseLinksAndPipes(path);
    if (QFileInfo(path).isFile())
        ChartDb = Open(path);
    else
        ChartDb = MakeDatabase(path);
    ChartDb->SetBeforeWrite([tables = ChartDb.get()] { CopyBeforeChange(*tables); });
}

void DatabaseCls::Commit() {
    if (ChartDb)
        ChartDb->Commit();
}

void DatabaseCls::OnOneConnection(const std::function<void()>& operation) {
    const std::shared_ptr<TableStore> connection = ChartDb;
    const auto commitWhatNobodyElseWill = [&] {
        if (connection != ChartDb)
            connection->Commit();
    };
    try {
        operation();
    } catch (const RuntimeError&) {
        commitWhatNobodyElseWill();
        throw;
    }
    commitWhatNobodyElseWill();
}

TableStore& DatabaseCls::Tables() const {
    if (!ChartDb)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *ChartDb;
}
