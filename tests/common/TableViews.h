#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

/// Lets a connection to a database file read each of its tables under the table's own name, as
/// views of the connection's own: nothing is written to the file.
inline void ViewTablesByName(SQLite::Database& database) {
    SQLite::Statement tables(
        database,
        "SELECT printf('CREATE TEMP VIEW \"%w\" AS SELECT %s FROM main.Rows%d WHERE Key BETWEEN %d"
        " AND %d ORDER BY Key', Name,"
        " (SELECT group_concat('\"' || name || '\"') FROM (SELECT name FROM"
        " pragma_table_info('Rows' || Shape) WHERE name <> 'Key' ORDER BY cid)),"
        " Shape, Id << 32, (Id + 1 << 32) - 1) FROM Catalogue");
    while (tables.executeStep())
        database.exec(tables.getColumn(0).getString());
}
