#include "tests/print/JobReportTest.h"

#include <QFile>
#include <cmath>

void JobReportTest::WriteJobs(const QByteArray& content, const QString& file) {
    QFile list(Path(u"Jobs/"_s + file));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write(content);
}

QList<QList<JobReportTest::Line>> JobReportTest::LinesOfLastJob() const {
    constexpr int HeaderTexts = 5;
    QList<QList<Line>> pages;
    for (const RecordedPage& page : Recorded.LastJob()) {
        QList<Line> lines;
        for (qsizetype text = HeaderTexts; text + 2 < page.Texts.size(); text += 3)
            lines.append({page.Texts[text].Words, page.Texts[text + 1].Words,
                          page.Texts[text + 2].Words,
                          std::round(page.Texts[text].Place.y() * 1000) / 1000});
        EXPECT_EQ(page.Texts.size(), HeaderTexts + 3 * lines.size());
        pages.append(lines);
    }
    return pages;
}

QList<QList<JobReportTest::Line>> JobReportTest::Print(const QStringList& chartNames,
                                                       const QString& kid, const QString& period) {
    const qsizetype before = Recorded.Jobs.size();
    Database().PrintReport2(kid, chartNames, period);
    EXPECT_EQ(Recorded.Jobs.size(), before + 1);
    return LinesOfLastJob();
}

QStringList JobReportTest::Counts(const QList<QList<Line>>& pages) {
    QStringList counts;
    for (const QList<Line>& page : pages)
        for (const Line& line : page)
            counts += line.Job.section(u".     "_s, 1) + u' ' + line.Completed.trimmed() + u'/' +
                      line.Incomplete.trimmed();
    return counts;
}

void JobReportTest::ExpectError(int number, const QStringList& chartNames) {
    const qsizetype before = Recorded.Jobs.size();
    EXPECT_ERROR(number, Database().PrintReport2(u"Anna"_s, chartNames, u"period"_s))
        << chartNames.join(u", "_s).toStdString();
    EXPECT_EQ(Recorded.Jobs.size(), before);
}
