#include "tests/accessibility/Stage.h"

#include "accounts/AddIncentives.h"
#include "app/RegisterForms.h"
#include "authoring/ChartEditor.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/ResetDate.h"
#include "filling/ChartViewer.h"
#include "platform/printing/PrintNews.h"
#include "platform/runtime/Dates.h"
#include "session/Session.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LoginWindow.h"
#include "store/DailyCopies.h"

#include <QApplication>
#include <QDir>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDate FirstDay(2001, 3, 4);
const QDate LastDay(2001, 3, 10);

void StoreWithHistory(const QString& name, const QString& owner) {
    StoreChart(name,
               {{u"Feed the cat"_s, u"Sun-Sat"_s, u"Mum"_s, u"Easy"_s, u"2"_s},
                {u"Make the bed"_s, u"Sun-Sat"_s, u"Dad"_s, u"Medium"_s, u"3"_s},
                {u"Lay the table"_s, u"Wed"_s, u"Mum"_s, u"Hard"_s, u"5"_s}},
               owner, FirstDay, LastDay, true);
    Arrange([&] { Database().DuplicateChartHistory(name); });
}

} // namespace

Stage::Stage() {
    SetPrompts(&prompts_);
    SetDesktop(&desktop_);
    FillStore();
}

Stage::~Stage() {
    help_.reset();
    restore_.reset();
    pictures_.reset();
}

void Stage::FillStore() {
    for (const QString& adult : {u"Mum"_s, u"Dad"_s})
        MakeAccount(adult, u"m"_s, u"Teacher"_s);
    for (const QString& child : {u"Anna"_s, u"Ben"_s, u"Mary Ann"_s})
        MakeAccount(child, u"a"_s, u"Student"_s);
    Arrange([] {
        Database().AddToy(u"Anna"_s, u"Bike"_s, PictureFile(), 40);
        Database().AddPoints(u"Anna"_s, 12, false);
    });
    StoreWithHistory(u"Chores Anna"_s, u"Anna"_s);
    StoreWithHistory(u"Garden Anna"_s, u"Anna"_s);
}

void Stage::MakeCopies() {
    KeepDailyCopies(true);
    for (int day = 0; day < 3; ++day) {
        SetToday(QDate(2001, 3, 7).addDays(day));
        Arrange([] { Database().AddPoints(u"Anna"_s, 5, false); });
        FinishDailyCopy();
    }
    KeepDailyCopies(false);
}

QStringList Stage::Names() {
    return {u"LogIn"_s,
            u"LoginWindow"_s,
            u"NewUser"_s,
            u"ChangePasswordfrm"_s,
            u"MainForm"_s,
            u"MainForm of a child"_s,
            u"MainForm after a print"_s,
            u"Newfrm"_s,
            u"Openfrm"_s,
            u"ChartEditor"_s,
            u"DeleteChartForm"_s,
            u"ResetDate"_s,
            u"DisplayAllPeople"_s,
            u"OpenFillfrm"_s,
            u"ChartViewer"_s,
            u"DisplayAccount"_s,
            u"DisplayAccount of a child"_s,
            u"AddIncentives"_s,
            u"Reportfrm"_s,
            u"DateRangefrm"_s,
            u"DateRangefrm with its calendar"_s,
            u"WeekChartRepresentation"_s,
            u"BackgroundOptions"_s,
            u"OtherOptions"_s,
            u"frmAboutDutygrid"_s,
            u"HelpWindow"_s,
            u"PictureDialog"_s,
            u"RestoreWindow"_s};
}

QWidget& Stage::Show(const QString& name) {
    if (name == u"HelpWindow"_s) {
        help_ = std::make_unique<HelpWindow>();
        help_->Open(Path(u"HelpFile/DutygridHlp.hlp"_s));
        WaitForKeyboard(*help_);
        return *help_;
    }
    if (name == u"RestoreWindow"_s) {
        MakeCopies();
        restore_ = std::make_unique<RestoreWindow>();
        restore_->show();
        WaitForKeyboard(*restore_);
        return *restore_;
    }
    if (name == u"PictureDialog"_s)
        return ShowPictures();
    static const QStringList beforeLogIn = {u"LogIn"_s, u"LoginWindow"_s, u"NewUser"_s,
                                            u"ChangePasswordfrm"_s};
    static const QStringList ofChild = {u"OpenFillfrm"_s, u"ChartViewer"_s,
                                        u"MainForm of a child"_s, u"DisplayAccount of a child"_s};
    if (ofChild.contains(name))
        StartSession(u"Anna"_s, u"Student"_s);
    else if (!beforeLogIn.contains(name))
        StartSession(u"Mum"_s, u"Teacher"_s);
    QWidget& form = ShowForm(name.section(u' ', 0, 0));
    if (name == u"WeekChartRepresentation"_s)
        Find<QListWidget>(form, u"ChartList"_s).setCurrentRow(0);
    if (name.endsWith(u"print"_s))
        TellPrintNews({.File = Path(u"Printouts/Anna - Chores - 2001-03-04.pdf"_s)});
    if (name.endsWith(u"calendar"_s))
        Find<QPushButton>(form, u"Command1"_s).click();
    WaitForKeyboard(form);
    return form;
}

QStringList Stage::PictureFiles() {
    return QDir(Path(u"IncentivesPictures"_s)).entryList(QDir::Files);
}

QWidget& Stage::ShowPictures() {
    pictures_ = std::make_unique<PictureDialog>(nullptr, Path(u"IncentivesPictures"_s));
    pictures_->show();
    WaitForKeyboard(*pictures_);
    // They come from the disk by and by.
    const auto& grid = Find<QListView>(*pictures_, u"listView"_s);
    const auto count = PictureFiles().size();
    if (!QTest::qWaitFor([&] { return grid.model()->rowCount(grid.rootIndex()) == count; },
                         Patience))
        throw std::runtime_error("not all pictures are listed");
    Settle();
    return *pictures_;
}

/// On a slow machine the window manager takes its time.
void Stage::WaitForKeyboard(const QWidget& form) {
    const auto hasKeyboard = [&form] {
        const QWidget* focus = QApplication::focusWidget();
        return form.isActiveWindow() && focus != nullptr && form.isAncestorOf(focus);
    };
    Settle();
    if (!QTest::qWaitFor(hasKeyboard, Patience))
        throw std::runtime_error("the keyboard does not come to the form");
    Settle();
}

QWidget& Stage::ShowForm(const QString& name) {
    if (name == u"ChartEditor"_s)
        return OpenEditor();
    if (name == u"ChartViewer"_s)
        return OpenViewer();
    if (name == u"DeleteChartForm"_s || name == u"ResetDate"_s)
        OpenEditor();
    Form& form = DefaultForm(name);
    if (auto* logIn = dynamic_cast<LoginWindow*>(&form)) {
        logIn->LoginName = u"Anna"_s;
        logIn->LoginState = u"Student"_s;
    } else if (auto* password = dynamic_cast<ChangePasswordfrm*>(&form)) {
        password->AccountName = u"Anna"_s;
    } else if (auto* people = dynamic_cast<DisplayAllPeople*>(&form)) {
        people->ChartName = u"Chores Anna"_s;
        people->FirstDate = FirstDay;
        people->LastDate = LastDay;
    } else if (auto* incentives = dynamic_cast<AddIncentives*>(&form)) {
        incentives->AccountName = u"Anna"_s;
    } else if (auto* deletion = dynamic_cast<DeleteChartForm*>(&form)) {
        deletion->ChartName = u"Chores Anna"_s;
    } else if (auto* date = dynamic_cast<ResetDate*>(&form)) {
        date->ChartName = u"Chores Anna"_s;
    }
    form.Show();
    return form.Widget();
}

void Stage::PickChart(const QString& form) {
    Form& list = DefaultForm(form);
    list.Show();
    Settle();
    Find<QListWidget>(list.Widget(), u"ChartList"_s).setCurrentRow(0);
    Find<QPushButton>(list.Widget(), u"Ok"_s).click();
    Settle();
}

QWidget& Stage::OpenEditor() {
    PickChart(u"Openfrm"_s);
    return dynamic_cast<ChartEditor&>(*ChartEditors.Peek(ChartFormIndex - 1));
}

QWidget& Stage::OpenViewer() {
    PickChart(u"OpenFillfrm"_s);
    return dynamic_cast<ChartViewer&>(*ChartViewers.Peek(ChartFormIndex - 1));
}
