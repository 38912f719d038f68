#include "tests/authoring/AuthoringTest.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionSlider>
#include <functional>

namespace {

constexpr int Jobs = 15;
/// In twips.
constexpr int FirstTop = 650;
constexpr int Pitch = 380;

const QStringList FocusColumns = {u"Instructions"_s, u"DayOfWeek"_s, u"AdultResponsable"_s,
                                  u"Difficulty"_s,   u"Points"_s,    u"JobDelete"_s};

/// One notch of the wheel, as from the device: only then a control's parents get it too.
void TurnWheel(QWidget& over, int notches) {
    const QPointF middle(over.width() / 2.0, over.height() / 2.0);
    QWheelEvent turn(middle, over.mapToGlobal(middle), {}, QPoint(0, -120 * notches), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&turn);
    qApp->notify(&over, &turn);
}

QRect PartOf(const QScrollBar& bar, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.pageStep = bar.pageStep();
    option.singleStep = bar.singleStep();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
}

void ClickPart(QScrollBar& bar, QStyle::SubControl part) {
    QTest::mouseClick(&bar, Qt::LeftButton, {}, PartOf(bar, part).center());
}

void DragToTheEnd(QScrollBar& bar) {
    const QPoint hold = PartOf(bar, QStyle::SC_ScrollBarSlider).center();
    QTest::mousePress(&bar, Qt::LeftButton, {}, hold);
    for (int y = hold.y(); y < bar.height(); y += 10) {
        const QPointF place(hold.x(), y);
        QMouseEvent move(QEvent::MouseMove, place, bar.mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(&bar, &move);
    }
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(hold.x(), bar.height() - 1));
}

class EditorScroll : public AuthoringTest {
protected:
    static ChartEditor& FifteenJobs() {
        ChartEditor& editor = NewChart();
        for (int added = 1; added < Jobs; ++added)
            editor.NewTask_Click();
        Settle();
        return editor;
    }

    static void Focus(ChartEditor& editor, const QString& column, int row) {
        QWidget& control = RowControl(editor, column, row);
        control.setFocus();
        ASSERT_EQ(QApplication::focusWidget(), &control);
    }

    /// All seven controls of all rows stand where the value puts them, and are hidden above it.
    static void ExpectRows(const ChartEditor& editor, int value) {
        EXPECT_EQ(Scroll(editor).value(), value);
        const auto expect = [value](const auto& column, const char* name) {
            ASSERT_EQ(column.Count(), Jobs);
            for (int row = 0; row < Jobs; ++row) {
                EXPECT_EQ(column.Top(row), FirstTop + (row - value) * Pitch) << name << row;
                EXPECT_EQ(column[row].y(), column.Top(row) / 15) << name << row;
                EXPECT_EQ(column.Visible(row), row >= value) << name << row;
            }
        };
        expect(editor.Number, "Number");
        expect(editor.Instructions, "Instructions");
        expect(editor.DayOfWeek, "DayOfWeek");
        expect(editor.AdultResponsable, "AdultResponsable");
        expect(editor.Difficulty, "Difficulty");
        expect(editor.Points, "Points");
        expect(editor.JobDelete, "JobDelete");
    }
};

struct Way {
    const char* name;
    std::function<void(ChartEditor&, QWidget& focused, QScrollBar&)> scroll;
    int value;
};

const std::vector<Way> Ways = {
    {"wheel", [](ChartEditor&, QWidget& focused, QScrollBar&) { TurnWheel(focused, 1); }, 3},
    {"arrow of the bar",
     [](ChartEditor&, QWidget&, QScrollBar& bar) { ClickPart(bar, QStyle::SC_ScrollBarAddLine); },
     1},
    {"page of the bar",
     [](ChartEditor&, QWidget&, QScrollBar& bar) { ClickPart(bar, QStyle::SC_ScrollBarAddPage); },
     10},
    {"drag", [](ChartEditor&, QWidget&, QScrollBar& bar) { DragToTheEnd(bar); }, Jobs - 1},
    {"key Down on the bar",
     [](ChartEditor&, QWidget&, QScrollBar& bar) { QTest::keyClick(&bar, Qt::Key_Down); }, 1},
    {"key End on the bar",
     [](ChartEditor&, QWidget&, QScrollBar& bar) { QTest::keyClick(&bar, Qt::Key_End); },
     Jobs - 1}};

} // namespace

TEST_F(EditorScroll, ARowThatScrollsAwayWithTheKeyboardGoesWhole) {
    ChartEditor& editor = FifteenJobs();
    QScrollBar& bar = Scroll(editor);
    for (const Way& way : Ways)
        for (const QString& column : FocusColumns) {
            SCOPED_TRACE(std::string(way.name) + ", keyboard in " + column.toStdString());
            bar.setValue(0);
            Focus(editor, column, 0);
            way.scroll(editor, RowControl(editor, column, 0), bar);
            ExpectRows(editor, way.value);
            EXPECT_EQ(QApplication::focusWidget(), &bar) << "not in another job";
            Settle();
            ExpectRows(editor, way.value);
        }
}

TEST_F(EditorScroll, ThreeLinesDownWithTheKeyboardInThePointsHideThreeRows) {
    ChartEditor& editor = FifteenJobs();
    Focus(editor, u"Points"_s, 0);
    for (int line = 1; line <= 3; ++line) {
        ClickPart(Scroll(editor), QStyle::SC_ScrollBarAddLine);
        ExpectRows(editor, line);
    }
    for (int line = 2; line >= 0; --line) {
        ClickPart(Scroll(editor), QStyle::SC_ScrollBarSubLine);
        ExpectRows(editor, line);
    }
}

TEST_F(EditorScroll, TheKeyboardStaysInARowThatStaysInSight) {
    ChartEditor& editor = FifteenJobs();
    for (const QString& column : FocusColumns) {
        SCOPED_TRACE(column.toStdString());
        // In the middle of the frame, and in the row that comes to stand at its top.
        for (const int row : {5, 3}) {
            Scroll(editor).setValue(0);
            Focus(editor, column, row);
            TurnWheel(RowControl(editor, column, row), 1);
            ExpectRows(editor, 3);
            EXPECT_EQ(QApplication::focusWidget(), &RowControl(editor, column, row));
        }
    }
}

TEST_F(EditorScroll, ScrollingBehindAnotherFormTearsNoRow) {
    ChartEditor& editor = FifteenJobs();
    Focus(editor, u"Points"_s, 0);
    Default<Openfrm>().Show();
    Settle();
    Scroll(editor).setValue(3);
    ExpectRows(editor, 3);
    Default<Openfrm>().Unload();
    Settle();
    ExpectRows(editor, 3);
}

TEST_F(EditorScroll, TheWheelChangesNoBox) {
    ChartEditor& editor = FifteenJobs();
    auto& day = RowControl<QComboBox>(editor, u"DayOfWeek"_s, 2);
    day.setEditText(u"Tue"_s);
    day.setFocus();
    TurnWheel(day, 1);
    EXPECT_EQ(day.currentText(), u"Tue"_s);
    ExpectRows(editor, 3);
}

TEST_F(EditorScroll, TabIntoARowBelowTheFrameBringsItIntoSight) {
    ChartEditor& editor = FifteenJobs();
    Focus(editor, u"JobDelete"_s, 10);
    KeyToFocus(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &RowControl(editor, u"Instructions"_s, 11));
    ExpectRows(editor, 1);
}

TEST_F(EditorScroll, ShiftTabIntoARowAboveTheListBringsItIntoSight) {
    ChartEditor& editor = FifteenJobs();
    Scroll(editor).setValue(5);
    Focus(editor, u"Instructions"_s, 5);
    KeyToFocus(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &RowControl(editor, u"JobDelete"_s, 4));
    ExpectRows(editor, 4);
}

TEST_F(EditorScroll, ShiftTabFromTheBarGoesToTheLastRow) {
    ChartEditor& editor = FifteenJobs();
    Scroll(editor).setFocus();
    Press(Scroll(editor), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &RowControl(editor, u"JobDelete"_s, 14));
    ExpectRows(editor, 4);
}

TEST_F(EditorScroll, TabGoesThroughAllRowsAndNoneIsTorn) {
    ChartEditor& editor = FifteenJobs();
    Focus(editor, u"Instructions"_s, 0);
    for (int row = 0; row < Jobs; ++row)
        for (const QString& column : FocusColumns) {
            ASSERT_EQ(QApplication::focusWidget(), &RowControl(editor, column, row));
            ExpectRows(editor, std::max(0, row - 10));
            KeyToFocus(Qt::Key_Tab);
        }
    EXPECT_EQ(QApplication::focusWidget(), &Scroll(editor));
}

TEST_F(EditorScroll, FocusThatComesWithoutTheKeyScrollsNothing) {
    ChartEditor& editor = FifteenJobs();
    RowControl(editor, u"Points"_s, 14).setFocus(Qt::TabFocusReason);
    RowControl(editor, u"Points"_s, 13).setFocus(Qt::BacktabFocusReason);
    ExpectRows(editor, 0);
}
