#include "tests/bench/PlainSql.h"

PlainSql::PlainSql(const QString& file)
    : database_(file.toUtf8().constData(), SQLite::OPEN_READWRITE) {
    database_.exec("PRAGMA journal_mode=DELETE");
    database_.exec("PRAGMA synchronous=EXTRA");
}
