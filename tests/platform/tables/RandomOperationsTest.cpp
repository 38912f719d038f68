#include "platform/tables/Damage.h"
#include "tests/common/Rounds.h"
#include "tests/platform/tables/TablesTest.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <random>

namespace {

constexpr int MostTables = 12;
constexpr int MostRows = 150;
constexpr int MostCursors = 5;

/// A row as it should be: its fields' values with their types, and its long binary field.
struct ModelRow {
    /// Rises from row to row; never used again.
    int Id = 0;
    std::array<QString, 5> Shown;
    QByteArray Bytes;
};

struct ModelTable {
    int Id = 0;
    QString Name;
    QList<ModelRow> Rows;
};

/// A cursor and where it should stand.
struct ModelCursor {
    Recordset Rows;
    int Table = 0;
    /// The row it stands on or stood on when that was deleted; nothing behind the last row.
    std::optional<int> Row;
    bool IsOnRow = false;
};

/// Does whatever comes to mind, in the tables and in a plain model of them, and compares.
class RandomOperations : public TablesTest {
protected:
    RandomOperations() : random_(Seed()) {
        std::cout << "seed " << Seed() << " (DUTYGRID_SEED sets another)" << std::endl;
    }

    int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

    QString AnyName() {
        static const QStringList names{QStringLiteral("Chores"),
                                       QStringLiteral("chores"),
                                       QStringLiteral("Chores Tom"),
                                       QStringLiteral("\u00c4rger"),
                                       QStringLiteral("\u00e4rger"),
                                       QStringLiteral("\u03a3"),
                                       QStringLiteral("\u03c3"),
                                       QStringLiteral("say \"hi\""),
                                       QStringLiteral("it's"),
                                       QStringLiteral("a/b.c"),
                                       QStringLiteral(" "),
                                       QString(),
                                       QStringLiteral("\U0001F9F9"),
                                       QStringLiteral("sqlite_sequence"),
                                       QStringLiteral("MSysX"),
                                       QString(200, QLatin1Char('n')),
                                       QStringLiteral("History x from: 3/4/2001")};
        return names[Below(static_cast<int>(names.size()))];
    }

    QString AnyText(int length) {
        static const QString letters = QString::fromUtf8("ab 07\"'\\%_;\n\u00e9\u65e5");
        QString text;
        for (int i = Below(length + 1); i > 0; --i)
            text.append(letters[Below(static_cast<int>(letters.size()))]);
        return text;
    }

    ModelTable* TableOf(int id) {
        const auto found = std::find_if(tables_.begin(), tables_.end(),
                                        [&](const auto& table) { return table.Id == id; });
        return found == tables_.end() ? nullptr : &*found;
    }

    ModelTable* Named(const QString& name) {
        const auto found = std::find_if(tables_.begin(), tables_.end(), [&](const auto& table) {
            return table.Name.toCaseFolded() == name.toCaseFolded();
        });
        return found == tables_.end() ? nullptr : &*found;
    }

    static QList<ModelRow>::iterator RowOf(ModelTable& table, int id) {
        return std::find_if(table.Rows.begin(), table.Rows.end(),
                            [&](const auto& row) { return row.Id == id; });
    }

    void MakeOne() {
        const QString name = AnyName();
        if (Named(name)) {
            EXPECT_ERROR(3000, Store->CreateTable(name, AllTypes()));
        } else if (tables_.size() < MostTables) {
            Store->CreateTable(name, AllTypes());
            tables_.append({++lastId_, name, {}});
            std::sort(tables_.begin(), tables_.end(), [](const auto& one, const auto& other) {
                return one.Name.toCaseFolded().toStdString() <
                       other.Name.toCaseFolded().toStdString();
            });
        }
    }

    void DropOne() {
        const QString name = AnyName();
        const ModelTable* table = Named(name);
        if (!table) {
            EXPECT_ERROR(3078, Store->DeleteTable(name));
            return;
        }
        Store->DeleteTable(name);
        const int id = table->Id;
        tables_.removeIf([&](const auto& candidate) { return candidate.Id == id; });
        std::erase_if(cursors_, [&](ModelCursor& cursor) {
            if (cursor.Table != id)
                return false;
            EXPECT_ERROR(3078, cursor.Rows.RecordCount());
            EXPECT_ERROR(3078, cursor.Rows.MoveFirst());
            return true;
        });
    }

    void OpenOne() {
        const QString name = AnyName();
        ModelTable* table = Named(name);
        ASSERT_EQ(Store->HasTable(name), table != nullptr);
        if (!table) {
            EXPECT_ERROR(3078, Store->OpenRecordset(name));
            return;
        }
        if (cursors_.size() == MostCursors)
            cursors_.erase(cursors_.begin() + Below(MostCursors));
        cursors_.push_back({Store->OpenRecordset(name), table->Id, {}, false});
        Place(cursors_.back(), *table, table->Rows.begin());
        EXPECT_EQ(cursors_.back().Rows.Name(), table->Name);
    }

    static void Place(ModelCursor& cursor, ModelTable& table, QList<ModelRow>::iterator row) {
        cursor.IsOnRow = row != table.Rows.end();
        cursor.Row = cursor.IsOnRow ? std::optional(row->Id) : std::nullopt;
    }

    /// Sets a few fields of the row begun in the cursor and of the model's row.
    void SetSome(Recordset& rows, ModelRow& row, bool setAll) {
        const auto set = [&](int position, const QVariant& value) {
            if (!setAll && Below(3) == 0)
                return;
            const bool isNull = position != 3 && Below(8) == 0;
            const QVariant stored = isNull ? QVariant() : value;
            rows.SetValue(position, stored);
            row.Shown[static_cast<std::size_t>(position)] = Shown(stored);
        };
        set(0, AnyText(Below(50) == 0 ? 3000 : 30));
        set(1, AnyText(10));
        set(2, Below(100'000) - 50'000);
        set(3, Below(2) == 0);
        set(4, QDate(2001, 1, 1).addDays(Below(1000)));
        if (Below(6) == 0) {
            row.Bytes.clear();
            for (int pieces = Below(3); pieces >= 0; --pieces) {
                const QByteArray piece = AnyText(Below(20) == 0 ? 5000 : 20).toUtf8();
                rows.AppendChunk(QStringLiteral("Bytes"), piece);
                row.Bytes.append(piece);
            }
        }
    }

    void AddOne(ModelCursor& cursor, ModelTable& table) {
        if (table.Rows.size() >= MostRows)
            return;
        ModelRow row{++lastId_, {}, {}};
        row.Shown.fill(QStringLiteral("Null"));
        row.Shown[3] = QStringLiteral("bool false");
        cursor.Rows.AddNew();
        SetSome(cursor.Rows, row, Below(2) == 0);
        cursor.Rows.Update();
        table.Rows.append(row);
    }

    void EditOne(ModelCursor& cursor, ModelTable& table) {
        const auto row = cursor.IsOnRow ? RowOf(table, *cursor.Row) : table.Rows.end();
        if (row == table.Rows.end()) {
            EXPECT_ERROR(3021, cursor.Rows.Edit());
            return;
        }
        cursor.Rows.Edit();
        SetSome(cursor.Rows, *row, false);
        cursor.Rows.Update();
    }

    void DeleteOne(ModelCursor& cursor, ModelTable& table) {
        const auto row = cursor.IsOnRow ? RowOf(table, *cursor.Row) : table.Rows.end();
        if (row == table.Rows.end()) {
            EXPECT_ERROR(3021, cursor.Rows.Delete());
            return;
        }
        cursor.Rows.Delete();
        table.Rows.erase(row);
        cursor.IsOnRow = false;
    }

    void MoveOn(ModelCursor& cursor, ModelTable& table) {
        if (!cursor.Row) {
            EXPECT_ERROR(3021, cursor.Rows.MoveNext());
            return;
        }
        cursor.Rows.MoveNext();
        Place(cursor, table,
              std::find_if(table.Rows.begin(), table.Rows.end(),
                           [&](const auto& row) { return row.Id > *cursor.Row; }));
    }

    static void MoveToStart(ModelCursor& cursor, ModelTable& table) {
        if (table.Rows.isEmpty()) {
            EXPECT_ERROR(3021, cursor.Rows.MoveFirst());
        } else {
            cursor.Rows.MoveFirst();
        }
        Place(cursor, table, table.Rows.begin());
    }

    void Finish() {
        Store->Commit();
        committed_ = tables_;
        if (Below(10) == 0)
            CompareAll(*TableStore::OpenDatabase(File));
        EXPECT_EQ(FindDamage(File), QStringList());
    }

    void OpenAgain() {
        Store.reset();
        for (const ModelCursor& cursor : cursors_) {
            EXPECT_ERROR(91, cursor.Rows.Eof());
        }
        cursors_.clear();
        Store = TableStore::OpenDatabase(File);
        tables_ = committed_;
        CompareAll(*Store);
    }

    static void CompareRow(const Recordset& rows, const ModelRow& row) {
        for (int i = 0; i < 5; ++i)
            ASSERT_EQ(Shown(rows.Value(i)), row.Shown[static_cast<std::size_t>(i)]);
        ASSERT_EQ(rows.FieldSize(QStringLiteral("Bytes")), row.Bytes.size());
        ASSERT_EQ(rows.GetChunk(QStringLiteral("Bytes"), 3, 4000), row.Bytes.mid(3, 4000));
    }

    void Compare(ModelCursor& cursor, ModelTable& table) {
        ASSERT_EQ(cursor.Rows.Eof(), !cursor.Row.has_value());
        ASSERT_EQ(cursor.Rows.Bof(), !cursor.Row && table.Rows.isEmpty());
        ASSERT_EQ(cursor.Rows.RecordCount(), table.Rows.size());
        const auto row = cursor.IsOnRow ? RowOf(table, *cursor.Row) : table.Rows.end();
        if (row == table.Rows.end()) {
            EXPECT_ERROR(3021, cursor.Rows.Value(Below(5)));
        } else {
            CompareRow(cursor.Rows, *row);
        }
    }

    void CompareAll(TableStore& store) {
        ASSERT_EQ(store.TableCount(), tables_.size());
        for (int i = 0; i < tables_.size(); ++i) {
            ASSERT_EQ(store.TableName(i), tables_[i].Name);
            Recordset rows = store.OpenRecordset(tables_[i].Name);
            for (const ModelRow& row : tables_[i].Rows) {
                ASSERT_FALSE(rows.Eof());
                ASSERT_NO_FATAL_FAILURE(CompareRow(rows, row));
                rows.MoveNext();
            }
            ASSERT_TRUE(rows.Eof());
        }
    }

    void OneStep() {
        const int choice = Below(1000);
        if (choice < 2)
            Finish();
        else if (choice < 4)
            OpenAgain();
        else if (choice < 12)
            MakeOne();
        else if (choice < 15)
            DropOne();
        else if (choice < 60 || cursors_.empty())
            OpenOne();
        else
            UseCursor(choice);
    }

    void UseCursor(int choice) {
        ModelCursor& cursor = cursors_[static_cast<std::size_t>(Below(int(cursors_.size())))];
        ModelTable& table = *TableOf(cursor.Table);
        if (choice < 300)
            AddOne(cursor, table);
        else if (choice < 450)
            EditOne(cursor, table);
        else if (choice < 600)
            DeleteOne(cursor, table);
        else if (choice < 630)
            MoveToStart(cursor, table);
        else
            MoveOn(cursor, table);
        ASSERT_NO_FATAL_FAILURE(Compare(cursor, table));
    }

private:
    std::mt19937 random_;
    int lastId_ = 0;
    QList<ModelTable> tables_;
    QList<ModelTable> committed_;
    std::vector<ModelCursor> cursors_;
};

} // namespace

TEST_F(RandomOperations, TablesAgreeWithAPlainModelOfThem) {
    const int steps = Rounds(20'000, 500'000);
    for (int step = 0; step < steps; ++step) {
        ASSERT_NO_FATAL_FAILURE(OneStep()) << "step " << step;
        if (step % 1000 == 0) {
            ASSERT_NO_FATAL_FAILURE(CompareAll(*Store)) << "step " << step;
        }
        ASSERT_FALSE(HasFailure()) << "step " << step;
    }
}
