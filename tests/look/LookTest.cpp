#include "tests/look/LookTest.h"

#include "platform/forms/MainWindowArea.h"
#include "widgets/FittingLabel.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QScreen>

namespace {

bool IsCut(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        if (label->text().isEmpty() || qobject_cast<const FittingLabel*>(label) != nullptr)
            return false;
        if (label->wordWrap())
            return label->height() < label->heightForWidth(label->width());
        return label->width() < label->sizeHint().width() ||
               label->height() < label->fontMetrics().height();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return !button->text().isEmpty() && (button->width() < button->minimumSizeHint().width() ||
                                             button->height() < button->fontMetrics().height());
    return false;
}

/// Rows slide beneath their list's edge.
bool IsInList(const QWidget& control) {
    for (const QWidget* parent = &control; parent != nullptr; parent = parent->parentWidget())
        if (parent->objectName() == u"Rows" || parent->objectName() == u"RowsClip" ||
            parent->objectName() == u"CleanUpList" || parent->inherits("QAbstractScrollArea"))
            return true;
    return false;
}

} // namespace

LookTest::LookTest() = default;

QString LookTest::LongName() {
    return u"Maximiliana Bartholomea van der Woodhouse-Smythe"_s;
}

QString LookTest::LongJob() {
    return u"Put the lunch box into the dishwasher, wipe it and hang the school bag on its hook"_s;
}

void LookTest::MakeFamily() {
    const auto add = [](const QString& name, const QString& state, const QString& picture) {
        Arrange([&] {
            Database().AddUser(name, u"x"_s, state,
                               Path(u"UsersPictures/"_s + picture + u".png"_s));
        });
    };
    add(u"Mum"_s, u"Teacher"_s, u"Woman"_s);
    add(u"Dad"_s, u"Teacher"_s, u"Man"_s);
    add(u"Anna"_s, u"Student"_s, u"Fox"_s);
    add(u"Ben"_s, u"Student"_s, u"Dinosaur"_s);
    add(u"Maximilian"_s, u"Student"_s, u"Robot"_s);
    add(u"Anna-Katharina"_s, u"Student"_s, u"Owl"_s);
    add(u"Mary Ann"_s, u"Student"_s, u"Bee"_s);
    add(LongName(), u"Student"_s, u"GirlPlaits"_s);
    add(LongName(), u"Teacher"_s, u"Grandma"_s);
    Arrange([] {
        Database().AddToy(u"Anna"_s, u"New bicycle"_s, Path(u"IncentivesPictures/Bike.gif"_s), 300);
        Database().AddPoints(u"Anna"_s, 120, false);
    });
}

void LookTest::MakeChart(const QString& name, const QString& owner, int jobsADay,
                         const QString& job) {
    const QStringList jobs = {u"Feed the cat"_s,         u"Make your bed"_s,  u"Brush your teeth"_s,
                              u"Pack your school bag"_s, u"Tidy your desk"_s, u"Water the plants"_s,
                              u"Practise the recorder"_s};
    QList<EditorRow> rows;
    for (const QString& day : {u"Sun"_s, u"Wed"_s})
        for (int index = 0; index < jobsADay; ++index)
            rows.append({job.isEmpty() ? jobs.at(index % jobs.size()) : job, day,
                         job.isEmpty() ? u"Mum"_s : LongName(), u"Medium"_s, u"10"_s});
    StoreChart(name, rows, owner);
}

QStringList LookTest::Faults(Form& form, Fits fits) {
    QStringList faults;
    const auto tell = [&faults](const QWidget& control, const QString& what) {
        const QSize hint = control.sizeHint();
        faults += u"%1 %2: %3x%4, wants %5x%6"_s.arg(control.objectName(), what)
                      .arg(control.width())
                      .arg(control.height())
                      .arg(hint.width())
                      .arg(hint.height());
    };
    for (const QWidget* control : form.Widget().findChildren<QWidget*>()) {
        if (!control->isVisible() || control->objectName().startsWith(u"qt_"))
            continue;
        if (IsCut(*control))
            tell(*control, u"is cut"_s);
        if (control->parentWidget() != nullptr && !IsInList(*control) &&
            !control->parentWidget()->rect().contains(control->geometry()))
            tell(*control, u"is not within its parent"_s);
    }
    const QWidget& frame = form.Frame();
    if (form.FormPlace() == Form::Place::InMainWindow) {
        const QRect room = MainWindowArea()->viewport()->rect();
        // Half as large again as designed is the most that a screen of 1366 by 768 holds.
        constexpr QSize Least(860, 400);
        const bool isAsked = fits == Fits::Wholly && room.width() >= Least.width() &&
                             room.height() >= Least.height();
        if (isAsked && !room.contains(frame.geometry()))
            tell(frame, u"frame is not whole in %1x%2"_s.arg(room.width()).arg(room.height()));
    } else if (!frame.screen()->availableGeometry().contains(frame.frameGeometry())) {
        tell(frame, u"window is not whole on the screen"_s);
    }
    return faults;
}

void LookTest::Look(Form& form, const QString& name, Fits fits) {
    Settle();
    LookAt(form.Frame(), name);
    const QStringList faults = Faults(form, fits);
    EXPECT_EQ(faults, QStringList()) << name.toStdString();
}
