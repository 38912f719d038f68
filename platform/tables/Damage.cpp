#include "platform/tables/Damage.h"

#include "platform/tables/Catalogue.h"
#include "platform/tables/TableFile.h"

#include <array>
#include <limits>
#include <memory>
#include <sqlite3.h>
#include <vector>

namespace {

/// Sentences of the engine that are handed on: one fault makes many.
constexpr int MostEngineFaults = 3;

/// An entry of the catalogue.
struct Entry {
    qint64 Id = 0;
    QString Name;
    qint64 Shape = 0;
    Sum KeptSum = 0;
};

/// Whether a value can have been stored in a field.
bool IsReadable(const FieldDefinition& field, int type, const SQLite::Column& value) {
    if (type == SQLITE_NULL)
        return true;
    switch (field.Type) {
    case FieldType::Boolean:
        return type == SQLITE_INTEGER;
    case FieldType::Long:
        return type == SQLITE_INTEGER && value.getInt64() >= std::numeric_limits<qint32>::min() &&
               value.getInt64() <= std::numeric_limits<qint32>::max();
    case FieldType::LongBinary:
        return type == SQLITE_BLOB;
    case FieldType::Text:
    case FieldType::Memo:
        return type == SQLITE_TEXT;
    case FieldType::Date:
        break;
    }
    try {
        ValueOf(field, CellOf(value));
        return type == SQLITE_TEXT;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// A look through one file.
class Inspection {
public:
    explicit Inspection(SQLite::Database& database)
        : statements_(database), catalogue_(statements_) {}

    QStringList Find() {
        const int format = FormatOf(statements_);
        if (format == 0)
            return {QStringLiteral("The file is empty.")};
        // One state of the file, whoever writes meanwhile.
        statements_.Execute("BEGIN");
        Try([&] { LookAtStructure(); });
        if (format == FormatVersion) {
            Try([&] { catalogue_.Recheck(); });
            Try([&] { LookAtDeclarations(); });
            Try([&] { LookAtTables(); });
            Try([&] { LookForStrays(); });
            Try([&] {
                if (KeptSumOfFile(statements_) != std::to_string(SumOfFile(statements_)))
                    Say(QStringLiteral("The list of charts and accounts is not as it was stored."));
            });
        }
        return found_;
    }

private:
    void Say(const QString& sentence) {
        if (!found_.contains(sentence))
            found_ += sentence;
    }

    /// What stops one look is said, and does not stop the others.
    template <class Look>
    void Try(Look&& look) {
        try {
            look();
        } catch (const SQLite::Exception& fault) {
            Say(QStringLiteral("The file cannot be read whole: %1.")
                    .arg(QString::fromUtf8(fault.what())));
        } catch (const RuntimeError& error) {
            Say(error.Text());
        }
    }

    void LookAtStructure() {
        Query check(statements_,
                    "PRAGMA integrity_check(" + std::to_string(MostEngineFaults) + ')');
        while (check.Step()) {
            const QString word = TextOf(check, 0);
            if (word != QLatin1String("ok"))
                Say(QStringLiteral("The file is damaged: %1.").arg(word));
        }
        if (QString::fromStdString(
                statements_.Connection().execAndGet("PRAGMA encoding").getString()) !=
            QLatin1String("UTF-8"))
            Say(QStringLiteral("The file is damaged: its texts are of another kind."));
    }

    void LookAtDeclarations() {
        std::vector<std::array<std::string, 2>> expected{
            {"Information", Catalogue::InformationSql},
            {"Shapes", Catalogue::ShapesSql},
            {"Catalogue", Catalogue::CatalogueSql},
            // The engine's own, for the identities given.
            {"sqlite_sequence", "CREATE TABLE sqlite_sequence(name,seq)"}};
        {
            Query shapes(statements_, "SELECT Id, Fields FROM Shapes");
            while (shapes.Step()) {
                const std::string name = "Rows" + std::to_string(shapes.Number(0));
                expected.push_back(
                    {name, Catalogue::RowsSql(shapes.Number(0), std::string(shapes.Bytes(1)))});
            }
        }
        for (const auto& [name, sql] : expected) {
            Query declared(statements_, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND "
                                        "name = ?1 AND tbl_name = ?1 AND sql = ?2");
            declared.Bind(1, name);
            declared.Bind(2, sql);
            if (!declared.Step())
                Say(QStringLiteral("The file is damaged: what '%1' holds is not declared.")
                        .arg(QString::fromStdString(name)));
        }
    }

    void LookAtTables() {
        std::vector<Entry> entries;
        {
            Query list(statements_, "SELECT Id, Name, Shape, Sum FROM Catalogue");
            while (list.Step())
                entries.push_back({list.Number(0), TextOf(list, 1), list.Number(2),
                                   static_cast<Sum>(list.Number(3))});
        }
        for (const Entry& entry : entries) {
            try {
                LookAt(entry);
            } catch (const SQLite::Exception&) {
                SayUnreadable(entry);
            } catch (const RuntimeError&) {
                SayUnreadable(entry);
            }
        }
    }

    void SayUnreadable(const Entry& entry) {
        Say(QStringLiteral("'%1' cannot be read.").arg(entry.Name));
    }

    void LookAt(const Entry& entry) {
        // By its name, as the program looks for it.
        const std::shared_ptr<Table> table = catalogue_.Open(entry.Name);
        if (table->Id != entry.Id || table->Name != entry.Name)
            return SayUnreadable(entry);
        Query rows(statements_,
                   "SELECT * FROM " + table->Shape->Rows + " WHERE Key BETWEEN ?1 AND ?2");
        rows.Bind(1, table->FirstKey());
        rows.Bind(2, table->LastKey());
        Sum sum = 0;
        bool isReadable = true;
        while (rows.Step()) {
            const qint64 key = rows.Number(0);
            sum += SumOfRow(key);
            int column = 0;
            for (const FieldDefinition& field : table->Shape->Fields) {
                const SQLite::Column value = rows.Column(++column);
                const int type = value.getType();
                isReadable = isReadable && IsReadable(field, type, value);
                sum += SumOf(key, column - 1, type, value);
            }
        }
        if (!isReadable)
            SayUnreadable(entry);
        else if (sum != entry.KeptSum)
            Say(QStringLiteral("'%1' is not as it was stored.").arg(entry.Name));
    }

    void LookForStrays() {
        std::vector<qint64> shapes;
        for (Query all(statements_, "SELECT Id FROM Shapes"); all.Step();)
            shapes.push_back(all.Number(0));
        for (const qint64 shape : shapes) {
            Query strays(statements_, "SELECT 1 FROM Rows" + std::to_string(shape) +
                                          " WHERE Key >> 32 NOT IN (SELECT Id FROM Catalogue"
                                          " WHERE Shape = ?1) LIMIT 1");
            strays.Bind(1, shape);
            if (strays.Step())
                Say(QStringLiteral("There are rows of no chart and no account."));
        }
    }

    static QString TextOf(const Query& query, int column) {
        const std::string_view bytes = query.Bytes(column);
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }

    Statements statements_;
    Catalogue catalogue_;
    QStringList found_;
};

} // namespace

QStringList FindDamage(const QString& path) {
    try {
        const std::unique_ptr<SQLite::Database> database = Connect(path, SQLite::OPEN_READWRITE);
        RefuseByHeader(*database, path);
        Configure(*database);
        return Inspection(*database).Find();
    } catch (const SQLite::Exception& fault) {
        return {
            QStringLiteral("The file cannot be read: %1.").arg(QString::fromUtf8(fault.what()))};
    } catch (const RuntimeError& error) {
        return {error.Text()};
    }
}

namespace {

DamageAdviceMaker Advice = nullptr;

} // namespace

void SetDamageAdvice(DamageAdviceMaker maker) {
    Advice = maker;
}

QString DamageAdvice(const QString& path) {
    return Advice == nullptr ? QString() : Advice(path);
}
