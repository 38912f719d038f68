#include "session/FormNames.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"
#include "widgets/EmptyNote.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

namespace {

/// A list that says why it is empty, the first time that a family opens its form.
struct SpeakingList {
    const char* Name;
    QString Form;
    QString List;
    QString Text;
    bool IsForChildren = false;
};

void PrintTo(const SpeakingList& list, std::ostream* out) {
    *out << list.Name;
}

class EmptyListsTest : public FormTest, public testing::WithParamInterface<SpeakingList> {
protected:
    EmptyListsTest() { MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s); }

    static QWidget& Open(const QString& name) {
        if (::Form* former = ExistingForm(name))
            former->Unload();
        Settle();
        ::Form& form = DefaultForm(name);
        form.Show();
        Settle();
        return form.Widget();
    }

    /// A child with a chart of this week and its history.
    static void Fill() {
        MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
        StoreChart(u"Chores Anna"_s, {{u"Dust"_s, u"Sun-Sat"_s, u"Mum"_s, u"Easy"_s, u"2"_s}},
                   u"Anna"_s, QDate(2001, 3, 4), QDate(2001, 3, 10), true);
        Arrange([] { Database().DuplicateChartHistory(u"Chores Anna"_s); });
    }

    static QAbstractItemView& ListOf(const QWidget& form, const QString& name) {
        return Find<QAbstractItemView>(form, name);
    }
    static EmptyNote& NoteOf(const QAbstractItemView& list) {
        auto* note = list.findChild<EmptyNote*>();
        if (note == nullptr)
            throw std::runtime_error("the list says nothing");
        return *note;
    }
    static QRect PlaceOf(const QWidget& widget) {
        return {widget.mapToGlobal(QPoint()), widget.size()};
    }

    /// The whole text is seen, and nothing else is where it stands.
    static void ExpectSaid(const QWidget& form, const QAbstractItemView& list,
                           const QString& text) {
        const EmptyNote& note = NoteOf(list);
        EXPECT_EQ(list.model()->rowCount(), 0);
        EXPECT_TRUE(note.isVisible());
        EXPECT_EQ(note.text(), text);
        EXPECT_EQ(list.accessibleDescription(), QString(text).replace(u'\n', u' '))
            << "also to screen readers";
        EXPECT_EQ(note.font().pointSizeF(), list.font().pointSizeF());
        const QStringList lines = text.split(u'\n');
        for (const QString& line : lines)
            if (lines.size() > 1) {
                EXPECT_LE(note.fontMetrics().horizontalAdvance(line),
                          note.contentsRect().width() - 2 * note.margin())
                    << "broken where it is meant to be";
            }
        EXPECT_EQ(PlaceOf(note), PlaceOf(*list.viewport()));
        EXPECT_LE(note.heightForWidth(note.width()), note.height());
        EXPECT_LE(note.minimumSizeHint().width(), note.width()) << "no word is cut";
        for (const QWidget* other : form.findChildren<QWidget*>()) {
            const bool isApart = !other->isAncestorOf(&note) && !list.isAncestorOf(other);
            const bool isOver = other->isVisible() && PlaceOf(*other).intersects(PlaceOf(note));
            EXPECT_FALSE(isApart && isOver) << other->objectName().toStdString();
        }
    }
};

TEST_P(EmptyListsTest, SaysSoUntilItIsFilled) {
    const SpeakingList& given = GetParam();
    StartSession(given.IsForChildren ? u"Anna"_s : u"Mum"_s,
                 given.IsForChildren ? u"Student"_s : u"Teacher"_s);
    const QWidget& empty = Open(given.Form);
    ExpectSaid(empty, ListOf(empty, given.List), given.Text);

    Fill();
    const QWidget& filled = Open(given.Form);
    if (given.Form == FormNames::Reportfrm)
        ClickRow(ListOf(filled, u"StudentsList"_s), 0);
    const QAbstractItemView& list = ListOf(filled, given.List);
    EXPECT_GT(list.model()->rowCount(), 0);
    EXPECT_FALSE(NoteOf(list).isVisible());
    EXPECT_EQ(list.accessibleDescription(), QString());
}

const QList<SpeakingList> SpeakingLists = {
    {"Open", FormNames::Openfrm, u"ChartList"_s, u"No Dutygrid yet. F2 begins one."_s},
    {"OpenByAChild", FormNames::OpenFillfrm, u"ChartList"_s,
     u"Nothing to do this week.\nAsk the grown-up\nwho writes your Dutygrid."_s, true},
    {"Accounts", FormNames::DisplayAccount, u"StudentsList"_s,
     u"No Sparkit yet. The log-in's \"New User\" makes one."_s},
    {"Review", FormNames::WeekChartRepresentation, u"ChartList"_s, u"No Dutygrid yet."_s},
    {"NamesOfReports", FormNames::Reportfrm, u"StudentsList"_s, u"No Sparkit yet."_s},
    {"ChartsOfReports", FormNames::Reportfrm, u"ListView1"_s, u"Choose a name first."_s},
    {"HistoryOfReports", FormNames::Reportfrm, u"ListView2"_s, u"Choose a name first."_s}};

INSTANTIATE_TEST_SUITE_P(Lists, EmptyListsTest, testing::ValuesIn(SpeakingLists),
                         [](const auto& list) { return std::string(list.param.Name); });

TEST_F(EmptyListsTest, NobodyIsToldToChooseWhereThereIsNobody) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QWidget& view = Open(FormNames::DisplayAccount);
    EXPECT_FALSE(Find(view, u"NobodyChosen"_s).isVisible());
    EXPECT_TRUE(Find(view, u"Pointslbl"_s).isVisible());
}

TEST_F(EmptyListsTest, AChildReadsLargeWordsInLinesOfTheirSense) {
    StartSession(u"Anna"_s, u"Student"_s);
    LookAt(Open(FormNames::OpenFillfrm), u"OpenFillfrm"_s);
}

TEST_F(EmptyListsTest, AChildWithoutChartsHasNoneToReport) {
    MakeAccount(u"Zoe"_s, u"z"_s, u"Student"_s);
    StartSession(u"Mum"_s, u"Teacher"_s);
    const QWidget& reports = Open(FormNames::Reportfrm);
    ClickRow(ListOf(reports, u"StudentsList"_s), 0);
    ExpectSaid(reports, ListOf(reports, u"ListView1"_s), u"No Dutygrid of this month."_s);
    ExpectSaid(reports, ListOf(reports, u"ListView2"_s), u"No history of this month yet."_s);
}

} // namespace
