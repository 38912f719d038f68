#include "store/TableNames.h"
#include "tests/store/StoreTest.h"

#include <QFile>

namespace {

/// The accounts' table has a name that no chart can take.
class AccountsNameTest : public StoreTest {
protected:
    AccountsNameTest() {
        Arrange([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("cat"),
                               QStringLiteral("Student"), QString());
        });
        SaveChart(QStringLiteral("Chores"), {Job(QStringLiteral("a"), QStringLiteral("Mon"))});
        Viewer.rows = {ViewerRow{}};
        Database().ReadInfoFromChart(QStringLiteral("Chores"), 0, true, QStringLiteral("Mon"));
    }

    /// In any case, by the rules of all the world's letters: the last has a long s.
    static QStringList Names() {
        return {QStringLiteral("USERS"), QStringLiteral("users"), QStringLiteral("Users"),
                QStringLiteral("uſERS")};
    }

    /// The operation is refused in words that tell why.
    template <class Operation>
    static void ExpectRefusal(const QString& name, Operation&& operation) {
        const std::optional<RuntimeError> refusal = ErrorOf(operation);
        ASSERT_TRUE(refusal) << "not refused for " << name.toStdString();
        EXPECT_EQ(refusal->Number(), 5);
        EXPECT_EQ(refusal->Text(), QStringLiteral("The name \"%1\" is kept for the accounts. "
                                                  "Please give the Dutygrid another one.")
                                       .arg(name));
    }

    /// Runs every operation that writes to a chart.
    static void TryAll(const QString& name) {
        ExpectRefusal(name, [&] { Database().CreateChart(name); });
        ExpectRefusal(name, [&] { Database().DeleteChart(name); });
        ExpectRefusal(name, [&] { Database().DuplicateChartHistory(name); });
        ExpectRefusal(name, [&] { Database().ClearChartPoints(name); });
        for (const bool ticks : {true, false})
            ExpectRefusal(name, [&] {
                Database().WriteInfoToChart(name, 0, ticks, QStringLiteral("Anna"),
                                            QDate(2001, 3, 4), QDate(2001, 3, 10), true);
            });
    }
};

TEST_F(AccountsNameTest, NoOperationOnChartsTouchesTheAccountsUnderTheirNameInAnyCase) {
    const QStringList accounts = Rows(UsersTable);
    for (const QString& name : Names()) {
        ASSERT_TRUE(Database().ChartExist(name)) << name.toStdString();
        TryAll(name);
        EXPECT_EQ(Rows(UsersTable), accounts) << name.toStdString();
        EXPECT_EQ(TableNames(), QStringList{QStringLiteral("Chores")}) << name.toStdString();
    }
}

TEST_F(AccountsNameTest, NoChartTakesTheNameWhereTheAccountsAreMissing) {
    ResetSession();
    ASSERT_TRUE(QFile::remove(Path(QStringLiteral("Database/Charts.mdb"))));
    Database().InitDatabse();
    for (const QString& name : Names())
        TryAll(name);
    EXPECT_FALSE(Database().ChartExist(UsersTable));
}

TEST_F(AccountsNameTest, NamesThatOnlyBeginLikeItAreCharts) {
    const QStringList names = {QStringLiteral("users "), QStringLiteral("Users Anna"),
                               QStringLiteral(" USERS"), QStringLiteral("USER")};
    for (const QString& name : names) {
        SaveChart(name, {Job(QStringLiteral("a"), QStringLiteral("Mon"))});
        Database().DuplicateChartHistory(name);
        Database().DeleteChart(QStringLiteral("History ") + name +
                               QStringLiteral(" from: 3/4/2001"));
        Database().Commit();
    }
    EXPECT_EQ(TableNames(), (QStringList{QStringLiteral(" USERS"), QStringLiteral("Chores"),
                                         QStringLiteral("USER"), QStringLiteral("users "),
                                         QStringLiteral("Users Anna")}));
}

} // namespace
