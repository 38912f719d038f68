#include "tests/filling/FillingTest.h"

#include "app/RegisterForms.h"
#include "platform/forms/DefaultForms.h"
#include "platform/runtime/ProgramFolder.h"

#include <QAction>
#include <QListWidget>

FillingTest::FillingTest() {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Anna"), QStringLiteral("a"), QStringLiteral("Student"));
    StartSession(QStringLiteral("Anna"), QStringLiteral("Student"));
    Find<QAction>(DefaultForm(QStringLiteral("MainForm")).Widget(), QStringLiteral("SoundOnOff"))
        .setChecked(true);
}

void FillingTest::MakeChart(const QString& name, const QList<Job>& jobs, const QString& owner,
                            QDate first, QDate last, bool autoCreate) {
    QList<EditorRow> rows;
    for (const Job& job : jobs)
        rows += EditorRow{job.text, job.day, job.adult, job.difficulty, job.points};
    StoreChart(name, rows, owner, first, last, autoCreate);
}

QList<FillingTest::Job> FillingTest::JobsOn(const QString& day, int count) {
    QList<Job> jobs;
    for (int job = 1; job <= count; ++job)
        jobs += Job{QStringLiteral("%1 job %2").arg(day).arg(job), day};
    return jobs;
}

OpenFillfrm& FillingTest::ShowList() {
    Form& form = DefaultForm(OpenFillfrm::FormName);
    form.Show();
    Settle();
    return dynamic_cast<OpenFillfrm&>(form);
}

void FillingTest::Pick(const QString& chart) {
    auto& form = dynamic_cast<OpenFillfrm&>(DefaultForm(OpenFillfrm::FormName));
    auto& list = Find<QListWidget>(form, QStringLiteral("ChartList"));
    const QList<QListWidgetItem*> found = list.findItems(chart, Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("not in the list: " + chart.toStdString());
    ClickRow(list, list.row(found.first()));
    Click(Button(form, QStringLiteral("Ok")));
}

ChartViewer& FillingTest::OpenChart(const QString& chart) {
    ShowList();
    Pick(chart);
    ChartViewer* viewer = ViewerAt(ChartFormIndex - 1);
    if (viewer == nullptr)
        throw std::runtime_error("no viewer opened");
    DesktopCalls.Sounds.clear();
    return *viewer;
}

ChartViewer* FillingTest::ViewerAt(int slot) {
    return dynamic_cast<ChartViewer*>(ChartViewers.Peek(slot));
}

QString FillingTest::TextAt(const QWidget& form, const QString& label) {
    return Find<QLabel>(form, label).text();
}

QPushButton& FillingTest::Button(const QWidget& form, const QString& name) {
    return Find<QPushButton>(form, name);
}

QScrollBar& FillingTest::Scroll(const ChartViewer& viewer) {
    return Find<QScrollBar>(viewer, QStringLiteral("VScroll"));
}

QStringList FillingTest::Jobs(const ChartViewer& viewer) {
    QStringList jobs;
    for (int row = 0; row < viewer.Instructions.Count(); ++row)
        jobs += viewer.Instructions[row].text();
    return jobs;
}

QStringList FillingTest::Ticked(const QString& chart) {
    QStringList ticked;
    for (const QString& row : Rows(chart)) {
        const QStringList fields = row.split(QLatin1Char('|'));
        if (fields.value(5) == QLatin1String("-1"))
            ticked += fields.value(0) + QLatin1Char('|') + fields.value(1);
    }
    return ticked;
}

QString FillingTest::PointsIn(const QString& account) {
    class Caption : public CaptionTarget {
    public:
        QString text;
        void SetCaption(const QString& caption) override { text = caption; }
    } caption;
    Database().RetrievePoints(account, caption);
    return caption.text;
}

void FillingTest::SetGoal(const QString& name, qint16 cost, const QString& picture,
                          const QString& account) {
    Arrange([&] { Database().AddToy(account, name, picture, cost); });
}

void FillingTest::SetPoints(qint16 points, const QString& account) {
    Arrange([&] {
        Database().AddPoints(account, 0, true);
        Database().AddPoints(account, points, false);
    });
}

QString FillingTest::Sound(const QString& file, int flags) const {
    return QStringLiteral("%1 %2")
        .arg(InProgramFolder(QStringLiteral("sounds/") + file))
        .arg(flags);
}
