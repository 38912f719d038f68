#include "tests/faults/Snapshot.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QCryptographicHash>
#include <QList>
#include <string>

namespace {

void AppendValue(QByteArray& out, const SQLite::Column& value) {
    if (value.isBlob()) {
        const QByteArrayView bytes(static_cast<const char*>(value.getBlob()), value.getBytes());
        out += "blob " + QByteArray::number(bytes.size()) + ' ' +
               QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    } else if (value.isNull()) {
        out += "null";
    } else {
        // The storage class is part of what is compared: the text 7 is not the number 7.
        out += value.isText() ? "text " : "number ";
        out += QByteArray::fromStdString(value.getString()).replace('\n', "\\n");
    }
    out += " | ";
}

std::string Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char letter : name)
        quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    return quoted + '"';
}

} // namespace

QByteArray SnapshotOf(const QString& databaseFile) {
    // Writable, as at a start of the program: what a kill has left behind is rolled back here.
    SQLite::Database database(databaseFile.toUtf8().constData(), SQLite::OPEN_READWRITE, 5000);
    QByteArray out;
    SQLite::Statement integrity(database, "PRAGMA integrity_check");
    while (integrity.executeStep())
        out += "integrity: " + QByteArray::fromStdString(integrity.getColumn(0).getString()) + '\n';

    SQLite::Statement tables(database, "SELECT name, sql FROM sqlite_master WHERE type = 'table' "
                                       "ORDER BY rowid");
    while (tables.executeStep()) {
        const std::string name = tables.getColumn(0).getString();
        out += "table " + QByteArray::fromStdString(name) + ": " +
               QByteArray::fromStdString(tables.getColumn(1).getString()) + '\n';
        SQLite::Statement rows(database, "SELECT * FROM " + Quoted(name) + " ORDER BY rowid");
        while (rows.executeStep()) {
            for (int column = 0; column < rows.getColumnCount(); ++column)
                AppendValue(out, rows.getColumn(column));
            out += '\n';
        }
    }
    return out;
}

QByteArray FirstDifference(const QByteArray& expected, const QByteArray& actual) {
    const QList<QByteArray> wanted = expected.split('\n');
    const QList<QByteArray> found = actual.split('\n');
    for (qsizetype line = 0; line < qMax(wanted.size(), found.size()); ++line)
        if (wanted.value(line) != found.value(line))
            return "line " + QByteArray::number(line + 1) + "\nexpected: " + wanted.value(line) +
                   "\nfound:    " + found.value(line);
    return "no difference";
}
