#include "tests/faults/Household.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Prompts.h"
#include "store/TableNames.h"
#include "tests/faults/FaultWorld.h"

namespace {

constexpr int PictureCount = 3;
constexpr int MostChildren = 7;

const QStringList ChildNames{
    QStringLiteral("Anna"),         QStringLiteral("Ben"),
    QStringLiteral("Mary Ann"),     QStringLiteral("O'Neil"),
    QStringLiteral("Li \"Bo\""),    QString::fromUtf8("Zo\u00eb \U0001f600"),
    QStringLiteral("Tim/Tom. 100%")};
const QStringList ChartNames{QStringLiteral("Chores"), QStringLiteral("Garden"),
                             QStringLiteral("Dish Duty"), QStringLiteral("Pets; DROP TABLE")};
const QStringList DayTexts{QStringLiteral("Mon-Fri"), QStringLiteral("Sun-Sat"),
                           QStringLiteral("Sun"),     QStringLiteral("Mon"),
                           QStringLiteral("Wed"),     QString()};

QDate WeekStart() {
    const QDate today = Today();
    return today.addDays(-(today.dayOfWeek() % 7));
}

} // namespace

Household::Household(quint32 seed, const QString& pictureFolder)
    : seed_(seed), pictures_(pictureFolder) {}

void Household::MakePictures(const QString& folder) {
    for (int picture = 0; picture < PictureCount; ++picture) {
        std::mt19937 bytes(static_cast<quint32>(picture) + 1);
        QByteArray content;
        // One of them leaves no rest when it is cut into the pieces in which it is stored.
        const int size = picture == 0 ? 4 * 32768 : 100'001 + picture * 9'999;
        for (int i = 0; i < size; ++i)
            content += static_cast<char>(bytes());
        WriteBytes(folder + QStringLiteral("/picture%1").arg(picture), content);
    }
}

int Household::Any(int count) {
    return static_cast<int>(random_() % static_cast<quint32>(count));
}

QString Household::AnyOf(const QStringList& names) {
    return names.at(Any(static_cast<int>(names.size())));
}

QString Household::AnyPicture() {
    return pictures_ + QStringLiteral("/picture%1").arg(Any(PictureCount));
}

void Household::Do(int number) {
    random_.seed(seed_ * 1'000'003U + static_cast<quint32>(number));
    // Six actions a day; after six weeks the calendar begins anew, which keeps history short.
    SetToday(QDate(2001, 3, 4).addDays(number / 6 % 42));
    RunAction([this] { Act(); });
}

void Household::Act() {
    FakeList teachers;
    FakeList students;
    Database().PopulateUserList(&teachers, students);
    children_ = students.items;
    FakeList charts;
    Database().PopulateChartList(charts, false);
    charts_ = charts.items;

    if (children_.size() < 2)
        return AddChild();
    if (charts_.isEmpty())
        return SaveChartForSome();
    const int kind = Any(100);
    if (kind < 24) {
        SaveChartForSome();
    } else if (kind < 44) {
        Tick();
    } else if (kind < 62) {
        ChangeDay();
    } else if (kind < 74) {
        FakeList list;
        CurrentUser = AnyOf(children_);
        Database().PopulateChartList(list, true);
    } else if (kind < 81) {
        AddChild();
    } else if (kind < 86) {
        Database().ChangePicture(AnyOf(children_), AnyPicture());
    } else if (kind < 90) {
        Database().AddToy(AnyOf(children_), QStringLiteral("Bike"), AnyPicture(), 120);
    } else if (kind < 93) {
        Database().AddPoints(AnyOf(children_), 0, true);
    } else if (kind < 96) {
        Database().DeleteAccount(AnyOf(children_));
    } else if (kind < 98) {
        Database().DeleteChart(AnyOf(charts_));
    } else {
        Database().ChangePassword(AnyOf(children_), QStringLiteral("secret %1").arg(Any(1000)));
    }
}

void Household::FillEditor() {
    editor_.rows.clear();
    const int jobs = 1 + Any(8);
    for (int job = 0; job < jobs; ++job)
        editor_.rows.append({QStringLiteral("Job %1 of %2").arg(job).arg(Any(1000)),
                             AnyOf(DayTexts), QStringLiteral("Mum"), QStringLiteral("Easy"),
                             QString::number(Any(9))});
}

void Household::SaveChart(const QString& chart, const QStringList& children, bool autoCreate) {
    ChartEditors.RedimPreserve(0);
    const QDate first = WeekStart();
    const QDate last = first.addDays(6);
    const auto saveAs = [&](const QString& name, const QString& formerOwner,
                            const QString& newOwner) {
        if (Database().ChartExist(name)) {
            Database().DuplicateChartHistory(name);
            Database().ClearChartPoints(name);
            Database().WriteInfoToChart(name, 0, false, formerOwner, first, last, autoCreate);
        } else {
            Database().WriteInfoToChart(name, 0, false, newOwner, first, last, autoCreate);
            Database().DuplicateChartHistory(name);
        }
    };
    if (children.isEmpty())
        return saveAs(chart, QStringLiteral("Nobody"), QString());
    for (const QString& child : children)
        saveAs(FirstWord(chart) + QLatin1Char(' ') + child, child, child);
    if (children.size() == 1)
        Tell(children.front() + QStringLiteral("'s Sparkit Dutygrid has been created"));
    else
        Tell(QStringLiteral("All charts have been created"));
}

void Household::SaveChartForSome() {
    FillEditor();
    QStringList selected;
    if (Any(8) > 0) {
        const int most = 1 + Any(4);
        for (const QString& child : std::as_const(children_))
            if (selected.size() < most && !selected.contains(child) && Any(2) == 0)
                selected += child;
    }
    SaveChart(AnyOf(ChartNames), selected, Any(4) > 0);
}

void Household::Tick() {
    Database().AddPoints(AnyOf(children_), static_cast<qint16>(Any(12) - 3), false);
}

void Household::ChangeDay() {
    ChartViewers.RedimPreserve(0);
    viewer_.rows = {ViewerRow{}};
    const QString chart = AnyOf(charts_);
    const int day = 1 + Any(7);
    Database().ReadInfoFromChart(chart, 0, true, DayAbbreviation(day));
    for (ViewerRow& row : viewer_.rows)
        row.Completed = Any(3) > 0;
    Database().WriteInfoToChart(chart, 0, true, QString(), QDate(), QDate(), false);
    Database().ReadInfoFromChart(chart, 0, true, DayAbbreviation(day % 7 + 1));
}

void Household::AddChild() {
    if (children_.size() >= MostChildren)
        return Database().DeleteAccount(AnyOf(children_));
    Database().AddUser(AnyOf(ChildNames), QStringLiteral("password %1").arg(Any(1000)),
                       QStringLiteral("Student"), AnyPicture());
}
