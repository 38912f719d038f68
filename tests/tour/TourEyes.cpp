#include "platform/forms/DefaultForms.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/Readable.h"
#include "tests/tour/Tour.h"

#include "tests/common/TableViews.h"
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QToolBar>

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

void Expect(bool asExpected, const std::string& what, const Here& here) {
    if (!asExpected)
        ADD_FAILURE_AT(here.file_name(), static_cast<int>(here.line())) << what;
}

void ExpectSame(const QStringList& actual, const QList<Text>& expected, const std::string& what,
                const Here& here) {
    const QStringList wanted(expected.begin(), expected.end());
    Expect(actual == wanted,
           what + "\n  is:       " + actual.join(QStringLiteral(" / ")).toStdString() +
               "\n  expected: " + wanted.join(QStringLiteral(" / ")).toStdString(),
           here);
}

/// The text on a control as its user reads it.
QString TextOn(const QWidget& control) {
    if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        return combo->currentText();
    const QVariant text = control.property("text");
    const QVariant title = control.property("title");
    QString result = text.isValid() ? text.toString() : title.toString();
    if (qobject_cast<const QAbstractButton*>(&control) != nullptr)
        result.remove(QLatin1Char('&'));
    return result;
}

QStringList EntriesOf(const QAbstractItemModel& model) {
    QStringList entries;
    for (int row = 0; row < model.rowCount(); ++row)
        entries += model.index(row, 0).data().toString();
    return entries;
}

QStringList VisibleCaptions(const QWidget& bar) {
    QStringList captions;
    for (const QAction* action : bar.actions())
        if (action->isVisible() && !action->isSeparator())
            captions += action->text().remove(QLatin1Char('&'));
    return captions;
}

QStringList Query(const QString& query) {
    // The file itself is read, as another program would: what is not committed is not there.
    SQLite::Database file(InProgramFolder(QStringLiteral("Database/Charts.mdb")).toStdString(),
                          SQLite::OPEN_READONLY);
    ViewTablesByName(file);
    SQLite::Statement rows(file, query.toStdString());
    QStringList result;
    while (rows.executeStep()) {
        QStringList fields;
        for (int field = 0; field < rows.getColumnCount(); ++field) {
            const SQLite::Column column = rows.getColumn(field);
            fields += column.isNull() ? QStringLiteral("<null>")
                                      : QString::fromStdString(column.getString());
        }
        result += fields.join(QLatin1Char('|'));
    }
    return result;
}

const QString LineEnd = QStringLiteral("\r\n");

QString TextFile(const QString& file) {
    QFile text(InProgramFolder(file));
    EXPECT_TRUE(text.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(text.readAll());
}

} // namespace

void Tour::Shows(const Text& control, const Text& text, Here here) {
    const QString shown = TextOn(Control(control));
    Expect(shown == text,
           control.toStdString() + " shows \"" + shown.toStdString() + "\" instead of \"" +
               text.toStdString() + '"',
           here);
}

void Tour::CanSee(const Text& control, bool seen, Here here) {
    Expect(Control(control).isVisible() == seen,
           control.toStdString() + (seen ? " cannot be seen" : " can be seen"), here);
}

void Tour::IsChosen(const Text& option, bool chosen, Here here) {
    Expect(dynamic_cast<QAbstractButton&>(Control(option)).isChecked() == chosen,
           option.toStdString() + (chosen ? " is not chosen" : " is chosen"), here);
}

void Tour::Lists(const Text& list, const QList<Text>& entries, Here here) {
    const auto& view = dynamic_cast<QAbstractItemView&>(Control(list));
    ExpectSame(EntriesOf(*view.model()), entries, list.toStdString(), here);
}

void Tour::Offers(const Text& combo, const QList<Text>& entries, Here here) {
    const auto& box = dynamic_cast<QComboBox&>(Control(combo));
    ExpectSame(EntriesOf(*box.model()), entries, combo.toStdString(), here);
}

void Tour::HeadingIs(const Text& list, const Text& heading, Here here) {
    const auto& view = dynamic_cast<QAbstractItemView&>(Control(list));
    ExpectSame({view.model()->headerData(0, Qt::Horizontal).toString()}, {heading},
               list.toStdString(), here);
}

void Tour::CaptionIs(const Text& caption, Here here) {
    const QString shown = form_.isNull() ? QString() : form_->windowTitle();
    Expect(shown == caption,
           "the caption is \"" + shown.toStdString() + "\" instead of \"" + caption.toStdString() +
               '"',
           here);
}

void Tour::ShowsPicture(const Text& label, bool picture, Here here) {
    const auto& shown = dynamic_cast<QLabel&>(Control(label));
    Expect(shown.pixmap().isNull() != picture,
           label.toStdString() + (picture ? " shows no picture" : " shows a picture"), here);
}

void Tour::ToolbarShows(const QList<Text>& captions, Here here) {
    const auto* bar = MainWindow().findChild<QToolBar*>(QStringLiteral("KidToolbar"));
    ExpectSame(VisibleCaptions(*bar), captions, "the toolbar", here);
}

void Tour::TellsOfPrint(const Text& line, Here here) {
    const auto* label = MainWindow().findChild<QLabel*>(QStringLiteral("PrintText"));
    const QString told = label->isVisible() ? label->text() : QString();
    Expect(told == line, "the main window tells \"" + told.toStdString() + '"', here);
}

void Tour::MenuShows(const Text& menu, const QList<Text>& captions, Here here) {
    const auto* entries = MainWindow().findChild<QMenu*>(menu);
    ExpectSame(VisibleCaptions(*entries), captions, "the menu " + menu.toStdString(), here);
}

void Tour::IsGone(const Text& form, Here here) {
    const Form* existing = ExistingForm(form);
    Expect(existing == nullptr || !existing->Widget().isVisible(), form.toStdString() + " is shown",
           here);
}

void Tour::Stored(const Text& query, const QList<Text>& rows, Here here) {
    ExpectSame(Query(query), rows, query.toStdString(), here);
}

void Tour::Tables(const QList<Text>& names, Here here) {
    Stored("SELECT Name FROM Catalogue WHERE Name <> 'USERS' ORDER BY FoldedName", names, here);
}

void Tour::FileHolds(const Text& file, const QList<Text>& lines, Here here) {
    QString text = TextFile(file);
    Expect(text.endsWith(LineEnd), file.toStdString() + " does not end a line", here);
    text.chop(LineEnd.size());
    ExpectSame(text.split(LineEnd), lines, file.toStdString(), here);
}

void Tour::FileHasLines(const Text& file, const QList<Text>& lines, Here here) {
    const QString wanted =
        LineEnd + QStringList(lines.begin(), lines.end()).join(LineEnd) + LineEnd;
    const QString text = LineEnd + TextFile(file);
    Expect(text.contains(wanted),
           file.toStdString() + " does not hold" + wanted.toStdString() + "in" + text.toStdString(),
           here);
}

void Tour::Printed(const QList<Text>& texts, int pages, Here here) {
    Expect(Pictures.PrintCount() == ++printsSeen_, "not one more job from the printer", here);
    printsSeen_ = Pictures.PrintCount();
    const QString paper = Pictures.PrintedText();
    Expect(paper.count(QLatin1Char('\f')) == pages, "not the number of pages", here);
    const QString read = paper.simplified();
    qsizetype from = 0;
    for (const Text& text : texts) {
        const qsizetype found = read.indexOf(text.simplified(), from);
        if (found < 0) {
            Expect(false, "not printed here: " + text.toStdString() + "\non: " + read.toStdString(),
                   here);
            return;
        }
        from = found + text.simplified().size();
    }
}

void Tour::Listen() {
    soundsSeen_ = static_cast<int>(DesktopCalls.Sounds.size());
}

void Tour::Heard(const QList<Text>& sounds, Here here) {
    QStringList heard;
    for (const QString& call : DesktopCalls.Sounds.mid(soundsSeen_))
        heard += QFileInfo(call.section(QLatin1Char(' '), 0, -2)).completeBaseName();
    Listen();
    ExpectSame(heard, sounds, "the sounds", here);
}
