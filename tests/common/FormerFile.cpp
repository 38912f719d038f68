#include "tests/common/FormerFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

void WriteFormerFile(const QString& former, const QString& present) {
    SQLite::Database file(former.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    file.exec("ATTACH '" + present.toStdString() + "' AS present");
    file.exec("BEGIN");
    file.exec("CREATE TABLE \"MSysLocale\" (\"Locale\" MEMO TEXT)");
    file.exec("INSERT INTO MSysLocale SELECT Value FROM Information WHERE Name = 'Locale'");
    SQLite::Statement tables(
        file, "SELECT printf('\"%w\"', Name), Fields, printf('SELECT %s FROM Rows%d WHERE Key"
              " BETWEEN %d AND %d ORDER BY Key', (SELECT group_concat('\"' || name || '\"') FROM"
              " (SELECT name FROM pragma_table_info('Rows' || Shape, 'present') WHERE name <> 'Key'"
              " ORDER BY cid)), Shape, Catalogue.Id << 32, (Catalogue.Id + 1 << 32) - 1)"
              " FROM Catalogue JOIN Shapes ON Shapes.Id = Shape ORDER BY Catalogue.Id");
    while (tables.executeStep()) {
        const std::string name = tables.getColumn(0).getString();
        file.exec("CREATE TABLE main." + name + " (" + tables.getColumn(1).getString() + ')');
        file.exec("INSERT INTO main." + name + ' ' + tables.getColumn(2).getString());
    }
    file.exec("COMMIT");
    file.exec("PRAGMA user_version=1");
}

void TakeSumsOff(const QString& file) {
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    database.exec("BEGIN");
    database.exec("ALTER TABLE Catalogue DROP COLUMN Sum");
    database.exec("DELETE FROM Information WHERE Name = 'Sum'");
    database.exec("PRAGMA user_version=2");
    database.exec("COMMIT");
}
