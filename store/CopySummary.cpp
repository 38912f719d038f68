#include "store/CopySummary.h"

#include "platform/runtime/RuntimeError.h"
#include "platform/tables/TableStore.h"
#include "store/AccountKinds.h"
#include "store/ChartFields.h"
#include "store/Rows.h"
#include "store/TableNames.h"

#include <algorithm>

namespace {

/// Children whose points are told one by one; of more it is told how many.
constexpr int ChildrenTold = 3;

void ReadAccounts(TableStore& tables, CopySummary& summary) {
    if (!tables.HasTable(UsersTable))
        return;
    TableWalk rows = tables.WalkThrough(
        UsersTable, {AccountField::Name, AccountField::State, AccountField::Points});
    ForEachRow(rows, [&] {
        const QString name = rows.Value(0).toString();
        summary.Accounts += name;
        if (IsChild(rows.Value(1).toString()))
            summary.Children += {name, rows.Value(2).toInt()};
    });
}

/// "2 charts fewer" and "1 chart more": those that one has and the other has not.
QStringList MissingAndAdded(QStringList copy, QStringList now, const QString& one,
                            const QString& many) {
    std::sort(copy.begin(), copy.end());
    std::sort(now.begin(), now.end());
    QStringList missing;
    QStringList added;
    std::set_difference(now.cbegin(), now.cend(), copy.cbegin(), copy.cend(),
                        std::back_inserter(missing));
    std::set_difference(copy.cbegin(), copy.cend(), now.cbegin(), now.cend(),
                        std::back_inserter(added));
    QStringList words;
    if (!missing.isEmpty())
        words += Counted(missing.size(), one, many) + QStringLiteral(" fewer");
    if (!added.isEmpty())
        words += Counted(added.size(), one, many) + QStringLiteral(" more");
    return words;
}

QStringList PointsThatDiffer(const QList<CopySummary::Child>& copy,
                             const QList<CopySummary::Child>& now) {
    QStringList words;
    int others = 0;
    for (const CopySummary::Child& child : copy) {
        const auto same = std::find_if(now.cbegin(), now.cend(),
                                       [&](const auto& other) { return other.Name == child.Name; });
        if (same == now.cend() || same->Points == child.Points)
            continue;
        const int difference = child.Points - same->Points;
        if (words.size() < ChildrenTold)
            words += QStringLiteral("%1 has %2 %3")
                         .arg(child.Name,
                              Counted(std::abs(difference), QStringLiteral("point"),
                                      QStringLiteral("points")),
                              difference > 0 ? QStringLiteral("more") : QStringLiteral("fewer"));
        else
            ++others;
    }
    if (others > 0)
        words += Counted(others, QStringLiteral("more child has"),
                         QStringLiteral("more children have")) +
                 QStringLiteral(" other points");
    return words;
}

} // namespace

QString Counted(qsizetype count, const QString& one, const QString& many) {
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

CopySummary SummaryOf(const QString& databaseFile) {
    CopySummary summary;
    try {
        const auto tables = TableStore::OpenToRead(databaseFile);
        const TableStore::Reading reading(*tables);
        ReadAccounts(*tables, summary);
        for (const QString& table : tables->TableNames()) {
            if (IsChart(table))
                summary.Charts += table;
            else if (IsHistory(table))
                ++summary.PastWeeks;
        }
    } catch (const RuntimeError& error) {
        summary = {};
        summary.Fault = error.Text();
    }
    return summary;
}

QString DifferenceOf(const CopySummary& copy, const CopySummary& now) {
    QStringList words = MissingAndAdded(copy.Accounts, now.Accounts, QStringLiteral("account"),
                                        QStringLiteral("accounts"));
    words +=
        MissingAndAdded(copy.Charts, now.Charts, QStringLiteral("chart"), QStringLiteral("charts"));
    if (copy.PastWeeks != now.PastWeeks)
        words +=
            Counted(std::abs(copy.PastWeeks - now.PastWeeks), QStringLiteral("past week"),
                    QStringLiteral("past weeks")) +
            (copy.PastWeeks < now.PastWeeks ? QStringLiteral(" fewer") : QStringLiteral(" more"));
    words += PointsThatDiffer(copy.Children, now.Children);
    return words.join(QStringLiteral(", "));
}
