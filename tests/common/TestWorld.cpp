#include "tests/common/TestWorld.h"

#include "platform/runtime/ProgramFolder.h"
#include "store/TableNames.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <sqlite3.h>

namespace {

void ExpectCommitted() {
    EXPECT_FALSE(IsUnderWay()) << "a kill would undo what has just been done";
}

QString FieldText(const QVariant& value) {
    if (value.isNull())
        return QStringLiteral("<null>");
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    default:
        return value.toString();
    }
}

} // namespace

ProgramTest::ProgramTest()
    : Paper(folder_.path()), run_({.Boxes = &Boxes,
                                   .Desktop = &DesktopCalls,
                                   .Paper = &Paper,
                                   .ProgramFolder = folder_.path(),
                                   .End = [this](int exitCode) { Ends += exitCode; }}) {
    std::filesystem::copy(DUTYGRID_ASSETS_DIR, folder_.path().toStdString(),
                          std::filesystem::copy_options::recursive);
    Database().InitDatabse();
}

ProgramTest::~ProgramTest() {
    Boxes.VerifyAllShown();
}

void ProgramTest::Restart() {
    ResetSession();
    Database().InitDatabse();
}

QString ProgramTest::Path(const QString& tail) {
    return InProgramFolder(tail);
}

QString ProgramTest::PictureFile(const QString& name, QRgb color) {
    const QString path = Path(name);
    if (!QFile::exists(path)) {
        QImage picture(24, 24, QImage::Format_RGB32);
        picture.fill(color);
        EXPECT_TRUE(picture.save(path));
    }
    return path;
}

bool IsUnderWay() {
    const QString file = InProgramFolder(QStringLiteral("Database/Charts.mdb"));
    if (!QFileInfo(file).isFile())
        return false;
    SQLite::Database another(file.toStdString(), SQLite::OPEN_READWRITE);
    // Only one can be about to write.
    return another.tryExec("BEGIN IMMEDIATE") == SQLITE_BUSY;
}

QStringList ProgramTest::Rows(const QString& table) {
    ExpectCommitted();
    const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
    Recordset rows = tables->OpenRecordset(table);
    const bool accounts = table == UsersTable;
    QStringList result;
    while (!rows.Eof()) {
        QStringList fields;
        for (int field = 0; field < rows.FieldCount(); ++field)
            if (!accounts || (field != 0 && field != 7))
                fields += FieldText(rows.Value(field));
        result += fields.join(QLatin1Char('|'));
        rows.MoveNext();
    }
    return result;
}

QStringList ProgramTest::TableNames(bool withAccounts) {
    ExpectCommitted();
    const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
    QStringList names;
    for (int index = 0; index < tables->TableCount(); ++index)
        if (withAccounts || tables->TableName(index) != UsersTable)
            names += tables->TableName(index);
    return names;
}

FakeEditor::FakeEditor() {
    former_ = ChartEditors.SetMaker([this] {
        return FormSlots<ChartEditorRows>::Slot{this, this};
    });
    ChartEditors.RedimPreserve(0);
}

FakeEditor::~FakeEditor() {
    ChartEditors.Clear();
    ChartEditors.SetMaker(former_);
}

FakeViewer::FakeViewer() {
    former_ = ChartViewers.SetMaker([this] {
        return FormSlots<ChartViewerRows>::Slot{this, this};
    });
    ChartViewers.RedimPreserve(0);
}

FakeViewer::~FakeViewer() {
    ChartViewers.Clear();
    ChartViewers.SetMaker(former_);
}
