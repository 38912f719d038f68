#include "tests/reports/ReviewTest.h"

#include "platform/runtime/Dates.h"

namespace {

/// Pictures of the form for a person to look at.
class ReviewPicturesTest : public ReviewTest {
protected:
    /// So many jobs over the week, some of them made.
    static QList<PlainRow> Week(int jobs) {
        const QStringList texts = {QStringLiteral("Make your bed"),
                                   QStringLiteral("Feed the cat"),
                                   QStringLiteral("Lay the table"),
                                   QStringLiteral("Put the lunch box into the "
                                                  "dishwasher and wipe it"),
                                   QStringLiteral("Practise the recorder"),
                                   QStringLiteral("Tidy your desk")};
        QList<PlainRow> rows;
        for (int job = 0; job < jobs; ++job) {
            const QString text =
                job < texts.size() ? texts.at(job) : QStringLiteral("Job number %1").arg(job + 1);
            for (int day = 1; day <= 7; ++day)
                if ((day + job) % 4 != 0)
                    rows += PlainRow{text, DayAbbreviation(day), 5 * (job % 4 + 1),
                                     (day * job) % 3 != 1};
        }
        return rows;
    }
};

TEST_F(ReviewPicturesTest, TheReviewCanBeLookedAt) {
    MakeChart(QStringLiteral("Chores Anna"), Week(4));
    MakeChart(QStringLiteral("Chores Ben"), Week(30), QStringLiteral("Ben"));
    MakeChart(QStringLiteral("A very long name of a Dutygrid for the holidays Charlotte"), Week(2));
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Job.Count(), 5);
    LookAt(*form.window(), QStringLiteral("Review-4jobs"));
    Choose(QStringLiteral("Chores Ben"));
    Scroll().setFocus();
    LookAt(*form.window(), QStringLiteral("Review-30jobs-fresh"));
    Scroll().setValue(13);
    EXPECT_EQ(form.Job.Count(), 31);
    Scroll().setValue(30);
    LookAt(*form.window(), QStringLiteral("Review-30jobs-end"));
}

} // namespace
