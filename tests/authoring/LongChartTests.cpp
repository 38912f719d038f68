#include "tests/authoring/AuthoringTest.h"

namespace {

/// A chart with many more rows than its editor shows.
class LongChart : public AuthoringTest {
protected:
    static constexpr int Jobs = 40;
    /// What the frame shows.
    static constexpr int RowsInSight = 11;

    static EditorRow JobAt(int row) {
        return {u"job %1"_s.arg(row), u"Tue"_s, u"Dad"_s, u"Hard"_s, QString::number(row)};
    }

    void SetUp() override {
        AuthoringTest::SetUp();
        MakeAccount(u"Anna"_s, u"x"_s, u"Student"_s);
        QList<EditorRow> rows;
        for (int row = 0; row < Jobs; ++row)
            rows += JobAt(row);
        StoreChart(u"Chores Anna"_s, rows);
        auto& dialog = Default<Openfrm>();
        dialog.Show();
        Settle();
        Find<QListWidget>(dialog, u"ChartList"_s).setCurrentRow(0);
        // No event is handled from here on: rows that wait are made when nothing else is.
        Press(Find(dialog, u"Ok"_s));
        editor_ = &LastEditor();
    }

    static void Press(QWidget& button) { dynamic_cast<QPushButton&>(button).click(); }

    /// Rows that have controls.
    int MadeRows() const {
        return static_cast<int>(editor_->Rows().findChildren<QPushButton*>().size());
    }

    /// What a window does on a change of its size, and no more.
    static void Arrange() { QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); }

    static bool Same(const EditorRow& one, const EditorRow& other) {
        return one.Instructions == other.Instructions && one.DayOfWeek == other.DayOfWeek &&
               one.AdultResponsable == other.AdultResponsable &&
               one.Difficulty == other.Difficulty && one.Points == other.Points;
    }

    void ExpectControls(int row, const EditorRow& expected) {
        EXPECT_EQ(editor_->Instructions[row].Text(), expected.Instructions);
        EXPECT_EQ(editor_->DayOfWeek[row].Text(), expected.DayOfWeek);
        EXPECT_EQ(editor_->AdultResponsable[row].text(), expected.AdultResponsable);
        EXPECT_EQ(editor_->Difficulty[row].Text(), expected.Difficulty);
        EXPECT_EQ(editor_->Points[row].text(), expected.Points);
        EXPECT_EQ(editor_->Number[row].text(), u"%1:"_s.arg(row + 1));
    }

    ChartEditor* editor_ = nullptr;
};

TEST_F(LongChart, AllRowsAreThereAndThoseInSightHaveControls) {
    EXPECT_EQ(editor_->RowCount(), Jobs);
    EXPECT_EQ(editor_->Points.Count(), Jobs);
    EXPECT_EQ(Scroll(*editor_).maximum(), Jobs - 1);
    for (int row = 0; row < Jobs; ++row)
        EXPECT_TRUE(Same(editor_->Row(row), JobAt(row))) << row;
    EXPECT_GE(MadeRows(), RowsInSight);
    EXPECT_LE(MadeRows(), RowsInSight + 2);
}

TEST_F(LongChart, LeftAloneAllRowsGetTheirControls) {
    Settle();
    ASSERT_EQ(MadeRows(), Jobs);
    for (int row = 0; row < Jobs; ++row)
        ExpectControls(row, JobAt(row));
    EXPECT_EQ(Scroll(*editor_).value(), 0);
}

TEST_F(LongChart, ThoseLeftOfAChartCutShortAreMade) {
    for (int deleted = 0; deleted < 20; ++deleted)
        Press(RowControl(*editor_, u"JobDelete"_s, 0));
    Settle();
    EXPECT_EQ(MadeRows(), Jobs - 20);
    EXPECT_EQ(Texts(*editor_).value(0), u"job 20"_s);
    EXPECT_EQ(Texts(*editor_).value(19), u"job 39"_s);
}

TEST_F(LongChart, RowsThatComeIntoSightHaveTheirControlsTextsAndLists) {
    Scroll(*editor_).setValue(5);
    EXPECT_GE(MadeRows(), RowsInSight + 5);
    EXPECT_LE(MadeRows(), RowsInSight + 7);
    Scroll(*editor_).setValue(Jobs - 1);
    EXPECT_EQ(MadeRows(), Jobs);
    for (int row = 0; row < Jobs; ++row)
        ExpectControls(row, JobAt(row));
    EXPECT_FALSE(editor_->Points[Jobs - 1].visibleRegion().isEmpty());
    EXPECT_EQ(Entries(editor_->DayOfWeek[Jobs - 1]), Entries(editor_->DayOfWeek[0]));
    EXPECT_EQ(Entries(editor_->Difficulty[Jobs - 1]), Entries(editor_->Difficulty[0]));
    EXPECT_EQ(editor_->DayOfWeek[Jobs - 1].count(), 9);
    EXPECT_EQ(editor_->Difficulty[Jobs - 1].count(), 5);
}

TEST_F(LongChart, ARowIsMadeWholeWhenOneOfItsControlsIsAskedFor) {
    EXPECT_EQ(editor_->Points[30].text(), u"30"_s);
    EXPECT_EQ(MadeRows(), 31);
    ExpectControls(30, JobAt(30));
    EXPECT_EQ(editor_->Points[30].y(), editor_->Points.Top(30) / 15);
    EXPECT_TRUE(editor_->Points.Visible(30));
}

TEST_F(LongChart, AFrameThatGrowsBackShowsMoreRows) {
    const int inSight = MadeRows();
    QWidget& window = editor_->Frame();
    window.resize(window.width(), window.height() - 120);
    Arrange();
    Scroll(*editor_).setValue(20);
    EXPECT_EQ(MadeRows(), 20 + inSight - 5);
    window.resize(window.width(), window.height() + 120);
    Arrange();
    EXPECT_EQ(MadeRows(), 20 + inSight);
}

TEST_F(LongChart, TabGoesOnIntoARowThatWaits) {
    const int made = MadeRows();
    editor_->JobDelete[made - 1].setFocus();
    FormTest::Press(editor_->JobDelete[made - 1], Qt::Key_Tab);
    EXPECT_TRUE(editor_->Instructions[made].hasFocus());
    ExpectControls(made, JobAt(made));
    EXPECT_LT(MadeRows(), Jobs) << "not all of them";
}

TEST_F(LongChart, ShiftTabFromTheBarGoesIntoTheLastRowThoughItWaits) {
    Scroll(*editor_).setFocus();
    FormTest::Press(Scroll(*editor_), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(editor_->JobDelete[Jobs - 1].hasFocus());
    ExpectControls(Jobs - 1, JobAt(Jobs - 1));
}

TEST_F(LongChart, EachControlIsCalledByItsColumnAndJob) {
    const auto expect = [](const QWidget& control, const QString& column, int row) {
        EXPECT_EQ(control.accessibleName(), u"%1, job %2"_s.arg(column).arg(row + 1));
    };
    for (const int row : {0, 1, 30}) {
        expect(editor_->Instructions[row], CaptionOf(*editor_, u"InstructionsLbl"_s), row);
        expect(editor_->DayOfWeek[row], CaptionOf(*editor_, u"DayOfWeeklbl"_s), row);
        expect(editor_->AdultResponsable[row], CaptionOf(*editor_, u"AdultResponsablelbl"_s), row);
        expect(editor_->Difficulty[row], CaptionOf(*editor_, u"difficultylbl"_s), row);
        expect(editor_->Points[row], CaptionOf(*editor_, u"Pointslbl"_s), row);
        EXPECT_EQ(editor_->JobDelete[row].accessibleName(), u"Delete job %1"_s.arg(row + 1));
        EXPECT_EQ(editor_->Number[row].buddy(), &editor_->Instructions[row]);
        EXPECT_EQ(editor_->DayOfWeek[row].lineEdit()->accessibleName(),
                  editor_->DayOfWeek[row].accessibleName());
    }
}

TEST_F(LongChart, DeletingARowMovesThoseThatWaitUp) {
    Press(RowControl(*editor_, u"JobDelete"_s, 2));
    EXPECT_EQ(editor_->RowCount(), Jobs - 1);
    EXPECT_LE(MadeRows(), RowsInSight + 2);
    for (int row = 0; row < Jobs - 1; ++row)
        EXPECT_TRUE(Same(editor_->Row(row), JobAt(row < 2 ? row : row + 1))) << row;
    ExpectControls(Jobs - 2, JobAt(Jobs - 1));
}

TEST_F(LongChart, DeletingAllButOneLeavesTheLastJob) {
    for (int deleted = 1; deleted < Jobs; ++deleted)
        Press(RowControl(*editor_, u"JobDelete"_s, 0));
    Settle();
    EXPECT_EQ(MadeRows(), 1);
    EXPECT_EQ(editor_->RowCount(), 1);
    ExpectControls(0, JobAt(Jobs - 1));
}

TEST_F(LongChart, AnAddedRowIsTheLastOne) {
    Press(Find(*editor_, u"NewTask"_s));
    EXPECT_TRUE(Same(editor_->Row(Jobs), {QString(), QString(), u"Mum"_s, QString(), QString()}));
    ExpectControls(Jobs, editor_->Row(Jobs));
    EXPECT_EQ(editor_->DayOfWeek[Jobs].count(), 9);
}

TEST_F(LongChart, PointsThatAreNoNumberAreRefusedAtOnce) {
    Boxes.Expect(PointsMessage);
    EditorRow row = JobAt(35);
    row.Points = u"many"_s;
    editor_->SetRow(35, row);
    EXPECT_EQ(editor_->Row(35).Points, QString());
    EXPECT_EQ(editor_->Row(35).Instructions, u"job 35"_s);
}

TEST_F(LongChart, DayListsAreThoseOfTheModeTheyWereFilledFor) {
    SchoolMode = -1;
    Scroll(*editor_).setValue(Jobs - 1);
    EXPECT_EQ(editor_->DayOfWeek[Jobs - 1].count(), 9) << "the row was made at home";
}

TEST_F(LongChart, FillingAllDayListsFillsThoseOfRowsThatWait) {
    SchoolMode = -1;
    editor_->FillAllDayLists();
    EXPECT_LE(MadeRows(), RowsInSight + 2);
    EXPECT_EQ(editor_->DayOfWeek[Jobs - 1].count(), 6);
    EXPECT_EQ(editor_->DayOfWeek[Jobs - 1].Text(), u"Tue"_s);
}

TEST_F(LongChart, IndexesOutsideRaise) {
    EXPECT_ERROR(9, editor_->Row(Jobs));
    EXPECT_ERROR(9, editor_->Row(-1));
    EXPECT_ERROR(9, editor_->SetRow(Jobs, JobAt(0)));
}

} // namespace
