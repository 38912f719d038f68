#include "store/TableNames.h"
#include "tests/common/TestWorld.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList Names = {u"MSysObjects"_s, u"msys"_s,    u"USERS"_s,     u"users"_s,
                           u"USER manual"_s, u"USERS2"_s,  u"History C"_s, u"Hist"_s,
                           u"history"_s,     u"Printed"_s, u"Princess"_s,  u"print"_s,
                           u"Chores Anna"_s, u" MSysX"_s,  u"His"_s,       QString()};

QStringList NamesThat(bool (*pass)(const QString&)) {
    QStringList passed;
    for (const QString& name : Names)
        if (pass(name))
            passed += name;
    return passed;
}

TEST(TableNamesTest, TheFirstFourLettersTellTheKindInTheirCaseAndTheAccountsTableByAllOfIt) {
    const auto kindsAre = [](TableKind kind, const QStringList& names) {
        for (const QString& name : names)
            EXPECT_EQ(KindOf(name), kind) << name.toStdString();
        qsizetype count = 0;
        for (const QString& name : Names)
            count += KindOf(name) == kind;
        EXPECT_EQ(count, names.size());
    };
    kindsAre(TableKind::System, {u"MSysObjects"_s});
    kindsAre(TableKind::Accounts, {u"USERS"_s});
    kindsAre(TableKind::History, {u"History C"_s, u"Hist"_s});
    kindsAre(TableKind::Printed, {u"Printed"_s, u"Princess"_s});
    kindsAre(TableKind::Chart, {u"msys"_s, u"users"_s, u"USER manual"_s, u"USERS2"_s, u"history"_s,
                                u"print"_s, u"Chores Anna"_s, u" MSysX"_s, u"His"_s, QString()});
}

TEST(TableNamesTest, ChartsAreWhatNoOtherKindTakes) {
    EXPECT_EQ(NamesThat(IsChart),
              (QStringList{u"msys"_s, u"users"_s, u"USER manual"_s, u"USERS2"_s, u"history"_s,
                           u"print"_s, u"Chores Anna"_s, u" MSysX"_s, u"His"_s, QString()}));
}

TEST(TableNamesTest, HistoryIsThatAlone) {
    EXPECT_EQ(NamesThat(IsHistory), (QStringList{u"History C"_s, u"Hist"_s}));
}

TEST(TableNamesTest, ForReportsWhatHasBeenPrintedStandsAmongTheCharts) {
    EXPECT_EQ(NamesThat(IsChartOrPrinted),
              (QStringList{u"msys"_s, u"users"_s, u"USER manual"_s, u"USERS2"_s, u"history"_s,
                           u"Printed"_s, u"Princess"_s, u"print"_s, u"Chores Anna"_s, u" MSysX"_s,
                           u"His"_s, QString()}));
}

TEST(TableNamesTest, AnAccountCanOwnAllButTheEnginesAndTheAccountsTables) {
    QStringList owned = Names;
    owned.removeOne(u"MSysObjects"_s);
    owned.removeOne(u"USERS"_s);
    EXPECT_EQ(NamesThat(IsOwned), owned);
}

TEST(TableNamesTest, NoNameThatBeginsAsThatOfTheAccountsHasAPeriod) {
    EXPECT_EQ(NamesThat(HasPeriod),
              (QStringList{u"msys"_s, u"users"_s, u"History C"_s, u"Hist"_s, u"history"_s,
                           u"Printed"_s, u"Princess"_s, u"print"_s, u"Chores Anna"_s, u" MSysX"_s,
                           u"His"_s, QString()}));
}

TEST(TableNamesTest, AHistoryTableIsNamedByTheChartAndItsWeeksBegin) {
    EXPECT_EQ(HistoryName(u"Chores Anna"_s, u"3/4/2001"_s),
              u"History Chores Anna from: 3/4/2001"_s);
}

TEST(TableNamesTest, OnlyTheFirstNameOfAReportSaysAll) {
    EXPECT_TRUE(MeansAllHistory({u"All"_s}));
    EXPECT_TRUE(MeansAllHistory({u"All"_s, u"Chores"_s}));
    EXPECT_FALSE(MeansAllHistory({u"Chores"_s, u"All"_s}));
    EXPECT_FALSE(MeansAllHistory({u"all"_s}));
    EXPECT_ERROR(9, MeansAllHistory({}));
}

TEST(TableNamesTest, FirstWordEndsAtTheFirstBlank) {
    EXPECT_EQ(FirstWord(u"Chores Anna"_s), u"Chores"_s);
    EXPECT_EQ(FirstWord(u"Dish Duty Anna"_s), u"Dish"_s);
    EXPECT_EQ(FirstWord(u"Chores"_s), u"Chores"_s);
    EXPECT_EQ(FirstWord(u"Chores  for Anna"_s), u"Chores"_s);
    EXPECT_EQ(FirstWord(u"Cho\tres Anna"_s), u"Cho\tres"_s);
    EXPECT_EQ(FirstWord(u" Chores"_s), QString());
    EXPECT_EQ(FirstWord(QString()), QString());
}

} // namespace
