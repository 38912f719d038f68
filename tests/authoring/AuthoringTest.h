#pragma once

#include "app/RegisterForms.h"
#include "authoring/ChartEditor.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/Newfrm.h"
#include "authoring/Openfrm.h"
#include "authoring/ResetDate.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <QAbstractItemView>
#include <QFile>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

/// The adult Mum is logged in, on Wednesday 7 March 2001, in home mode; the windows are up.
class AuthoringTest : public FormTest {
protected:
    void SetUp() override {
        MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s);
        StartSession(u"Mum"_s, u"Teacher"_s);
    }

    /// One row of a chart with the day given.
    static EditorRow Job(const QString& text, const QString& day = u"Mon"_s,
                         const QString& points = u"3"_s) {
        return {text, day, u"Mum"_s, u"Easy"_s, points};
    }

    static ChartEditor* EditorAt(int slot) {
        return dynamic_cast<ChartEditor*>(ChartEditors.Peek(slot));
    }
    /// The editor opened last.
    static ChartEditor& LastEditor() {
        ChartEditor* editor = EditorAt(ChartFormIndex - 1);
        if (editor == nullptr)
            throw std::runtime_error("no editor in the last slot");
        return *editor;
    }

    /// Opens an editor on a new chart through the name dialog.
    static ChartEditor& NewChart(const QString& name = u"Chores"_s) {
        auto& dialog = Default<Newfrm>();
        dialog.Show();
        Settle();
        Type(Find(dialog, u"NameOfNewChart"_s), name);
        Click(Find(dialog, u"Ok"_s));
        return LastEditor();
    }

    /// Opens an editor on a new chart of three jobs.
    static ChartEditor& ThreeJobs() {
        ChartEditor& editor = NewChart();
        AddJobs(editor, 2);
        editor.SetRow(0, {u"a"_s, u"Mon"_s, u"Mum"_s, u"Easy"_s, u"1"_s});
        editor.SetRow(1, {u"b"_s, u"Tue"_s, u"Dad"_s, u"Hard"_s, u"2"_s});
        editor.SetRow(2, {u"c"_s, u"Sat"_s, u"Gran"_s, u"Medium"_s, u"3"_s});
        return editor;
    }

    /// Opens an editor on a stored chart through the list of charts.
    static ChartEditor& OpenChart(const QString& name) {
        auto& dialog = Default<Openfrm>();
        dialog.Show();
        Settle();
        auto& list = Find<QListWidget>(dialog, u"ChartList"_s);
        const auto found = list.findItems(name, Qt::MatchExactly);
        if (found.isEmpty())
            throw std::runtime_error("chart is not listed: " + name.toStdString());
        ClickRow(list, list.row(found.first()));
        Click(Find(dialog, u"Ok"_s));
        return LastEditor();
    }

    /// Also of a row that is scrolled away and may have no controls before.
    template <class Control = QWidget>
    static Control& RowControl(const ChartEditor& editor, const QString& column, int row) {
        static_cast<void>(editor.Instructions[row]);
        return Find<Control>(editor, u"%1(%2)"_s.arg(column).arg(row));
    }

    static void AddJobs(ChartEditor& editor, int count) {
        for (int added = 0; added < count; ++added)
            Click(Find(editor, u"NewTask"_s));
    }

    static QScrollBar& Scroll(const ChartEditor& editor) {
        return Find<QScrollBar>(editor, u"VScroll"_s);
    }

    /// Opens a combo box's list and chooses an entry in it.
    static void Choose(QComboBox& combo, int entry) {
        combo.showPopup();
        Settle();
        combo.view()->setCurrentIndex(combo.model()->index(entry, 0));
        Press(*combo.view(), Qt::Key_Return);
        Settle();
    }

    static QStringList Entries(const QComboBox& combo) {
        QStringList entries;
        for (int index = 0; index < combo.count(); ++index)
            entries += combo.itemText(index);
        return entries;
    }

    static QStringList Entries(const QListWidget& list) {
        QStringList entries;
        for (int row = 0; row < list.count(); ++row)
            entries += list.item(row)->text();
        return entries;
    }

    static QStringList Texts(const ChartEditor& editor) {
        QStringList texts;
        for (int row = 0; row < editor.RowCount(); ++row)
            texts += editor.Row(row).Instructions;
        return texts;
    }

    static void WriteJobs(const QByteArray& content, const QString& file = u"HomeJobs.dat"_s) {
        QFile jobs(Path(u"Jobs/"_s + file));
        ASSERT_TRUE(jobs.open(QIODevice::WriteOnly));
        jobs.write(content);
    }

    static QByteArray ReadJobs(const QString& file = u"HomeJobs.dat"_s) {
        QFile jobs(Path(u"Jobs/"_s + file));
        EXPECT_TRUE(jobs.open(QIODevice::ReadOnly));
        return jobs.readAll();
    }

    /// The caption of a label, button or check box.
    static QString CaptionOf(const QWidget& form, const QString& name) {
        return Find(form, name).property("text").toString();
    }

    /// Whether a form can be seen.
    static bool Shown(const Form& form) { return form.Widget().isVisible(); }

    const QString CloseQuestion = u"Are you sure you want to exit without saving?"_s;
    const QString DeleteQuestion = u"Are you sure you want to delete the entire chart?"_s;
    const QString PointsMessage = u"That is not a valid number, please enter a number"_s;
};
