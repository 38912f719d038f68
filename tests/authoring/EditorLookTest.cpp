#include "tests/authoring/AuthoringTest.h"

#include "look/LookColors.h"
#include "widgets/ElidingEdit.h"

#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace {

/// What long texts and small windows do to the chart editor and its dialogs.
class EditorLookTest : public AuthoringTest {
protected:
    const QString longJob = u"Put the lunch box into the dishwasher and wipe it"_s;

    /// By how much two widgets of the same size look different: the most that red, green or blue
    /// of a pixel differs, 0 to 255. A picture that is put upon a ground is rounded once more.
    static int LargestDifference(QWidget& one, QWidget& other) {
        const QImage first = one.grab().toImage();
        const QImage second = other.grab().toImage();
        int largest = first.size() == second.size() ? 0 : 255;
        for (int y = 0; largest < 255 && y < first.height(); ++y) {
            for (int x = 0; x < first.width(); ++x) {
                const QRgb here = first.pixel(x, y);
                const QRgb there = second.pixel(x, y);
                largest = std::max({largest, std::abs(qRed(here) - qRed(there)),
                                    std::abs(qGreen(here) - qGreen(there)),
                                    std::abs(qBlue(here) - qBlue(there))});
            }
        }
        return largest;
    }
};

TEST_F(EditorLookTest, TheJobListIsAsWideAsItsLongestJob) {
    WriteJobs("Cook\r\n" + longJob.toLatin1() + "\r\n");
    ChartEditor& editor = NewChart();
    auto& combo = RowControl<DropDownCombo>(editor, u"Instructions"_s, 0);
    combo.showPopup();
    Settle();
    EXPECT_GT(combo.view()->viewport()->width(),
              combo.view()->fontMetrics().horizontalAdvance(longJob));
    EXPECT_GT(combo.view()->width(), combo.width());
    combo.hidePopup();
}

TEST_F(EditorLookTest, AListNearTheLowerEdgeIsShortenedRatherThanDroppedUpwards) {
    QByteArray jobs;
    for (int number = 0; number < 40; ++number)
        jobs += "Job " + QByteArray::number(number) + "\r\n";
    WriteJobs(jobs);
    ChartEditor& editor = NewChart();
    AddJobs(editor, 9);
    auto& combo = RowControl<DropDownCombo>(editor, u"Instructions"_s, 9);
    combo.showPopup();
    Settle();
    EXPECT_GE(combo.view()->mapToGlobal(QPoint()).y(), combo.mapToGlobal(QPoint()).y());
    combo.hidePopup();
}

TEST_F(EditorLookTest, ATextThatFitsStandsWhereTheToolkitWritesIt) {
    ChartEditor& editor = NewChart();
    Find(editor, u"NewTask"_s).setFocus();
    auto& box = RowControl<ElidingEdit>(editor, u"AdultResponsable"_s, 0);
    QLineEdit toolkits(&editor.Rows());
    toolkits.setGeometry(box.geometry().translated(0, 100));
    toolkits.show();
    for (const QString& text :
         {u"Mum"_s, u"fÄgjy Ågnes"_s, QString(), u"Mum\tand\nDad"_s, u"أمي"_s}) {
        box.setText(text);
        toolkits.setText(text);
        EXPECT_LE(LargestDifference(box, toolkits), 1) << text.toStdString();
    }
    box.setEnabled(false);
    toolkits.setEnabled(false);
    EXPECT_LE(LargestDifference(box, toolkits), 1) << "disabled";
}

TEST_F(EditorLookTest, ABoxIsPaintedAsItIsAtTheMoment) {
    ChartEditor& editor = NewChart();
    auto& box = RowControl<DropDownCombo>(editor, u"DayOfWeek"_s, 0);
    Find(editor, u"NewTask"_s).setFocus();
    Settle();
    const QImage atRest = box.grab().toImage();
    box.setFocus();
    const QImage focused = box.grab().toImage();
    EXPECT_NE(focused, atRest) << "no sign of the keyboard";
    box.setEnabled(false);
    EXPECT_NE(box.grab().toImage(), focused);
    box.setEnabled(true);
    Find(editor, u"NewTask"_s).setFocus();
    EXPECT_EQ(box.grab().toImage(), atRest);
    box.resize(box.width() + 40, box.height());
    const QImage wider = box.grab().toImage();
    EXPECT_EQ(wider.copy(0, 0, 20, box.height()), atRest.copy(0, 0, 20, box.height()));
    EXPECT_EQ(wider.copy(wider.width() - 20, 0, 20, box.height()),
              atRest.copy(atRest.width() - 20, 0, 20, box.height()))
        << "the arrow and the edge stand at the right";
}

TEST_F(EditorLookTest, ALongTextIsCutForTheEyeOnlyAndOnlyWhileNobodyWritesInIt) {
    ChartEditor& editor = NewChart();
    auto& box = RowControl<ElidingEdit>(editor, u"AdultResponsable"_s, 0);
    editor.SetRow(0, {u"a"_s, u"Mon"_s, longJob, u"Easy"_s, u"1"_s});
    Find(editor, u"NewTask"_s).setFocus();
    Settle();
    EXPECT_TRUE(box.IsCut());
    EXPECT_EQ(box.text(), longJob);
    const QImage cut = box.grab().toImage();
    box.setText(longJob + u" again"_s);
    box.setCursorPosition(0);
    EXPECT_EQ(box.grab().toImage(), cut) << "the same beginning and dots";
    QLineEdit toolkits(&editor.Rows());
    toolkits.setGeometry(box.geometry().translated(0, 100));
    toolkits.show();
    for (int width = box.width(); box.IsCut(); --width)
        box.setText(box.fontMetrics().elidedText(longJob, Qt::ElideRight, width));
    EXPECT_TRUE(box.text().endsWith(u'…'));
    EXPECT_EQ(box.grab().toImage(), cut) << "as much as there is room for";
    toolkits.setText(box.text());
    EXPECT_LE(LargestDifference(box, toolkits), 1);
    // What is chosen in it is seen though the keyboard is elsewhere.
    box.setText(longJob);
    toolkits.setText(longJob);
    for (QLineEdit* edit : {static_cast<QLineEdit*>(&box), &toolkits}) {
        edit->setCursorPosition(0);
        edit->setSelection(4, -4);
    }
    EXPECT_LE(LargestDifference(box, toolkits), 1) << "selected";
    box.setText(u"Mum"_s);
    EXPECT_FALSE(box.IsCut());
    EXPECT_NE(box.grab().toImage(), cut);
}

TEST_F(EditorLookTest, TheTipOfABoxIsItsWholeTextWhereItIsCut) {
    ChartEditor& editor = NewChart();
    auto& box = RowControl<ElidingEdit>(editor, u"AdultResponsable"_s, 0);
    box.parentWidget()->setToolTip(u"the list"_s);
    const auto tip = [&box] {
        QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), box.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&box, &ask);
        return ShownTip(QToolTip::text());
    };
    box.setText(u"Mum"_s);
    EXPECT_EQ(tip(), u"the list"_s);
    box.setText(u"<b>"_s + longJob);
    EXPECT_EQ(tip(), u"<b>"_s + longJob);
    QToolTip::hideText();
}

TEST_F(EditorLookTest, TheScrollBarShowsThatItHasTheKeyboard) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 11);
    Scroll(editor).setFocus();
    Settle();
    LookAt(editor.Frame(), u"ChartEditor-bar"_s);
}

TEST_F(EditorLookTest, ALowWindowShowsFewerRowsAndAllButtons) {
    ChartEditor& editor = NewChart();
    AddJobs(editor, 11);
    auto& frame = Find(editor, u"EditChartFrame"_s);
    EXPECT_EQ(frame.height(), 5055 / 15);
    QWidget& window = editor.Frame();
    window.resize(window.width(), window.height() - 120);
    Settle();
    EXPECT_EQ(frame.height(), 5055 / 15 - 120);
    EXPECT_LE(Scroll(editor).geometry().bottom(), frame.rect().bottom());
    auto& save = Find(editor, u"CreateChart"_s);
    EXPECT_TRUE(editor.rect().contains(save.geometry()));
    Scroll(editor).setValue(11);
    auto& last = RowControl(editor, u"Instructions"_s, 11);
    EXPECT_TRUE(last.visibleRegion().boundingRect().contains(last.rect()));
}

TEST_F(EditorLookTest, TheDeletionOfAChartIsNotOnePressOfEnterAway) {
    auto& form = Default<DeleteChartForm>();
    form.Show();
    Settle();
    EXPECT_TRUE(Find(form, u"No"_s).hasFocus());
}

TEST_F(EditorLookTest, ALongNameInTheListOfChartsIsCutInTheMiddleAndTold) {
    const QString name = u"Chores "_s + QString(50, u'W');
    StoreChart(name, {Job(u"a"_s)});
    auto& form = Default<Openfrm>();
    form.Show();
    Settle();
    auto& list = Find<QListWidget>(form, u"ChartList"_s);
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
    EXPECT_EQ(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(list.textElideMode(), Qt::ElideMiddle);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(list.item(0)->toolTip()).toPlainText(), name);
}

TEST_F(EditorLookTest, NobodyLooksChosenBeforeAPersonIs) {
    MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
    MakeAccount(u"Ben"_s, u"b"_s, u"Student"_s);
    auto& form = Default<DisplayAllPeople>();
    form.Show();
    Settle();
    auto& list = Find<QListWidget>(form, u"ListView1"_s);
    list.setFocus();
    Settle();
    const auto edge = [&list](int row) {
        const QRect card = list.visualItemRect(list.item(row));
        return list.viewport()->grab().toImage().pixelColor(card.left() + 2, card.center().y());
    };
    EXPECT_EQ(edge(0), edge(1));
    ClickRow(list, 1);
    EXPECT_NE(edge(0), edge(1));
}

TEST_F(EditorLookTest, ARowsDeleteHasAnEdgeUnderTheMouseOnly) {
    ChartEditor& editor = NewChart();
    Settle();
    QPushButton& button = editor.JobDelete[0];
    const auto edge = [&button](QStyle::State state) {
        QStyleOptionButton option;
        option.initFrom(&button);
        option.rect = QRect(QPoint(), button.size());
        option.state = state;
        QImage picture(button.size(), QImage::Format_RGB32);
        picture.fill(LookColors::Card);
        QPainter painter(&picture);
        button.style()->drawControl(QStyle::CE_PushButton, &option, &painter, &button);
        return picture.pixelColor(0, button.height() / 2);
    };
    EXPECT_EQ(edge(QStyle::State_Enabled), LookColors::Card);
    EXPECT_EQ(edge(QStyle::State_Enabled | QStyle::State_MouseOver), LookColors::Coral);
    EXPECT_EQ(edge(QStyle::State_Enabled | QStyle::State_HasFocus), LookColors::Teal);
}

TEST_F(EditorLookTest, ABandLiesBehindTheHeadsOfTheColumns) {
    ChartEditor& editor = NewChart();
    Settle();
    auto& frame = Find(editor, u"EditChartFrame"_s);
    const QImage picture = frame.grab().toImage();
    const qreal scale = picture.devicePixelRatio();
    const auto colorAt = [&](int x, int y) { return picture.pixelColor(QPoint(x, y) * scale); };
    for (const int x : {20, frame.width() - 20}) {
        EXPECT_EQ(colorAt(x, 30), LookColors::Band) << x;
        EXPECT_EQ(colorAt(x, 39), LookColors::Outline) << x;
        EXPECT_EQ(colorAt(x, 41), LookColors::Card) << x;
    }
}

} // namespace
