#include "tests/authoring/AuthoringTest.h"

#include "look/LookColors.h"
#include "widgets/FormViewAdapters.h"

#include "platform/printing/Printer.h"
#include "tests/common/FullDisk.h"
#include "tests/common/PrintedPages.h"

#include <QCheckBox>
#include <QIcon>

class SaveForPeople : public AuthoringTest {
protected:
    void SetUp() override {
        AuthoringTest::SetUp();
        for (const QString& child : {u"Anna"_s, u"Ben"_s, u"Mary Ann"_s})
            MakeAccount(child, u"x"_s, u"Student"_s);
    }

    static DisplayAllPeople& People() { return Default<DisplayAllPeople>(); }
    static QListWidget& List() { return Find<QListWidget>(People(), u"ListView1"_s); }
    static QCheckBox& PrintThem() { return Find<QCheckBox>(People(), u"PrintThem"_s); }
    static void Ok() { Click(Find(People(), u"Ok"_s)); }

    /// Hands the editor's rows on and selects the children by clicks.
    static void HandOn(ChartEditor& editor, const QList<int>& children = {}) {
        Click(Find(editor, u"CreateChart"_s));
        for (const int child : children)
            ClickRow(List(), child);
    }

    static ChartEditor& NewChartWithJob(const QString& name, const QString& day = u"Wed"_s) {
        ChartEditor& editor = NewChart(name);
        editor.SetRow(0, Job(u"Sweep"_s, day));
        return editor;
    }

    /// The row that NewChartWithJob stores for a child.
    static QString RowOf(const QString& child, bool completed = false, bool autoCreate = true) {
        return u"Sweep|Wed|Mum|Easy|3|%1|2001-03-04|2001-03-10|%2|%3"_s.arg(completed ? -1 : 0)
            .arg(child)
            .arg(autoCreate ? -1 : 0);
    }

    /// Ticks the first job of a chart, as a child would.
    static void Tick(const QString& chart) {
        FakeViewer viewer;
        Database().ReadInfoFromChart(chart, 0, true, u"Wed"_s);
        viewer.rows[0].Completed = true;
        Arrange([&] { Database().WriteInfoToChart(chart, 0, true, QString(), {}, {}, false); });
    }

    static QString CreatedFor(const QString& child) {
        return child + u"'s Sparkit Dutygrid has been created"_s;
    }
    const QString AllCreated = u"All charts have been created"_s;
};

TEST_F(SaveForPeople, ControlsBearTheirCaptions) {
    HandOn(NewChart());
    EXPECT_EQ(People().Caption(), u"List of Sparkits"_s);
    EXPECT_EQ(CaptionOf(People(), u"Label1"_s), u"Select Sparkits to Create Dutygrids"_s);
    EXPECT_EQ(CaptionOf(People(), u"Ok"_s), u"Ok"_s);
    EXPECT_EQ(CaptionOf(People(), u"Cancel"_s), u"Cancel"_s);
    EXPECT_TRUE(Find(People(), u"Image1"_s).isHidden());
}

TEST_F(SaveForPeople, LongNamesStayWithinTheirPlaces) {
    MakeAccount(u"Bartholomew Maximilian the Third"_s, u"x"_s, u"Student"_s);
    HandOn(NewChart(), {1, 3});
    for (int row = 1; row < List().count(); ++row)
        EXPECT_FALSE(List()
                         .visualItemRect(List().item(row))
                         .intersects(List().visualItemRect(List().item(row - 1))));
}

TEST_F(SaveForPeople, ListsTheChildrenWithTheirPictures) {
    Database().AddUser(u"Blue"_s, u"x"_s, u"Student"_s, PictureFile(u"blue.png"_s, 0xff0000ff));
    HandOn(NewChart());
    EXPECT_EQ(Entries(List()), (QStringList{u"Anna"_s, u"Ben"_s, u"Mary Ann"_s, u"Blue"_s}));
    const auto middle = [](int row) {
        const QImage icon = List().item(row)->icon().pixmap(72, 72).toImage();
        return icon.pixelColor(icon.width() / 2, icon.height() / 2).rgb();
    };
    EXPECT_EQ(middle(0), 0xff2266aa);
    EXPECT_EQ(middle(3), 0xff0000ff);
    EXPECT_EQ(List().iconSize(), QSize(72, 72));
    const QPixmap icon = List().item(3)->icon().pixmap(72, 72);
    EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(72, 72));
    EXPECT_EQ(icon.toImage().pixelColor(2, 2).alpha(), 0) << "a disc";
}

TEST_F(SaveForPeople, ChildWithoutAPictureIsListedAllTheSame) {
    Database().AddUser(u"Plain"_s, u"x"_s, u"Student"_s, QString());
    HandOn(NewChart());
    EXPECT_TRUE(Entries(List()).endsWith(u"Plain"_s));
    EXPECT_EQ(List().item(3)->icon().pixmap(72, 72).toImage().pixelColor(4, 36), LookColors::Band)
        << "nobody's disc";
}

TEST_F(SaveForPeople, SelectionIsCounted) {
    HandOn(NewChart());
    EXPECT_FALSE(People().AnySelected());
    EXPECT_EQ(People().SelectedCount(), 0);
    ClickRow(List(), 0);
    ClickRow(List(), 2);
    EXPECT_TRUE(People().AnySelected());
    EXPECT_EQ(People().SelectedCount(), 2);
    ClickRow(List(), 0);
    EXPECT_EQ(People().SelectedCount(), 1) << "a second click takes a child out again";
}

TEST_F(SaveForPeople, NobodySelectedStoresTheChartUnderItsPlainNameWithoutAWord) {
    HandOn(NewChartWithJob(u"Dish Duty"_s));
    Ok();
    EXPECT_EQ(Rows(u"Dish Duty"_s), QStringList{RowOf(QString())});
    EXPECT_EQ(TableNames(), (QStringList{u"Dish Duty"_s, u"History Dish Duty from: 3/4/2001"_s}));
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
}

TEST_F(SaveForPeople, OneChildGetsOneMessage) {
    HandOn(NewChartWithJob(u"Chores"_s), {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(Boxes.Last().Title, u"Sparkit Dutygrid"_s);
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s)});
    EXPECT_EQ(Rows(u"History Chores Anna from: 3/4/2001"_s),
              QStringList{RowOf(u"Anna"_s, false, false)});
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
}

TEST_F(SaveForPeople, ThreeChildrenGetOneMessageAtTheEnd) {
    HandOn(NewChartWithJob(u"Chores"_s), {2, 0, 1});
    Boxes.Expect(AllCreated, PromptAnswer::Ok, [] {
        EXPECT_TRUE(Database().ChartExist(u"Chores Mary Ann"_s));
        EXPECT_EQ(People().ChartName, u"Chores Mary Ann"_s);
    });
    Ok();
    for (const QString& child : {u"Anna"_s, u"Ben"_s, u"Mary Ann"_s})
        EXPECT_EQ(Rows(u"Chores "_s + child), QStringList{RowOf(child)});
    EXPECT_EQ(TableNames().size(), 6);
    EXPECT_EQ(TableNames().value(0), u"Chores Anna"_s) << "in the order of the list";
}

TEST_F(SaveForPeople, TwoChildrenGetTheMessageForAll) {
    HandOn(NewChartWithJob(u"Chores"_s), {0, 1});
    Boxes.Expect(AllCreated);
    Ok();
    EXPECT_FALSE(Database().ChartExist(u"Chores Mary Ann"_s));
}

TEST_F(SaveForPeople, PrintsNothingUnlessAsked) {
    HandOn(NewChartWithJob(u"Chores"_s), {0, 1});
    EXPECT_EQ(CaptionOf(People(), u"PrintThem"_s), u"Print them too"_s);
    EXPECT_FALSE(PrintThem().isChecked());
    Boxes.Expect(AllCreated);
    Ok();
    EXPECT_TRUE(Paper.Files().isEmpty());
}

TEST_F(SaveForPeople, PrintsTheChartsJustSavedAsOneJobChildAfterChild) {
    StoreChart(u"Chores Anna"_s, {Job(u"Old"_s)});
    HandOn(NewChartWithJob(u"Chores"_s), {2, 0});
    Click(PrintThem());
    Boxes.Expect(AllCreated, PromptAnswer::Ok,
                 [this] { EXPECT_TRUE(Paper.Files().isEmpty()) << "saved first"; });
    Ok();
    ASSERT_EQ(Paper.Files().size(), 1);
    const PrintedPages pages(Paper.LastFile());
    ASSERT_EQ(pages.Count(), 2);
    EXPECT_EQ(pages.LineAt(1, 1), u"Anna's Chores Dutygrid from 3/4/2001 to 3/10/2001"_s);
    EXPECT_EQ(pages.LineAt(1, 6.2), u"1. Sweep 3 Points"_s);
    EXPECT_EQ(pages.LineAt(2, 1), u"Mary Ann's Chores Dutygrid from 3/4/2001 to 3/10/2001"_s);
    EXPECT_EQ(Paper.Names(), QStringList(u"Chores - 2001-03-04"_s));
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
}

TEST_F(SaveForPeople, PrintsTheChartOfNobodyToo) {
    HandOn(NewChartWithJob(u"Dish Duty"_s));
    Click(PrintThem());
    Ok();
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_EQ(PrintedPages(Paper.LastFile()).LineAt(1, 1),
              u"Sparkit Dutygrid from 3/4/2001 to 3/10/2001"_s);
    EXPECT_EQ(Paper.Names(), QStringList(u"Dish Duty - 2001-03-04"_s));
}

TEST_F(SaveForPeople, PrinterThatFailsLeavesTheChartsSavedAndNothingToBeDoneAgain) {
    HandOn(NewChartWithJob(u"Chores"_s), {0});
    Click(PrintThem());
    SetPrintTarget(nullptr);
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Boxes.ExpectError(ErrorNumber::PrinterError);
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s)});
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
}

TEST_F(SaveForPeople, DoubleClickSavesForTheChildClicked) {
    HandOn(NewChartWithJob(u"Chores"_s));
    Boxes.Expect(CreatedFor(u"Ben"_s));
    DoubleClickRow(List(), 1);
    EXPECT_EQ(Rows(u"Chores Ben"_s), QStringList{RowOf(u"Ben"_s)});
}

TEST_F(SaveForPeople, DoubleClickOnAChildSelectedAlreadyKeepsItSelected) {
    HandOn(NewChartWithJob(u"Chores"_s), {0, 1});
    Boxes.Expect(AllCreated);
    DoubleClickRow(List(), 1);
    EXPECT_TRUE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_TRUE(Database().ChartExist(u"Chores Ben"_s));
}

TEST_F(SaveForPeople, DoubleClickOnTheEmptyPartSavesForTheSelection) {
    HandOn(NewChartWithJob(u"Chores"_s), {2});
    Boxes.Expect(CreatedFor(u"Mary Ann"_s));
    DoubleClickEmptyPart(List());
    EXPECT_EQ(Rows(u"Chores Mary Ann"_s), QStringList{RowOf(u"Mary Ann"_s)});
    EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);

    HandOn(NewChartWithJob(u"Dish Duty"_s));
    DoubleClickEmptyPart(List());
    EXPECT_EQ(Rows(u"Dish Duty"_s), QStringList{RowOf(QString())}) << "nobody is selected";
}

TEST_F(SaveForPeople, EnterInTheListSavesForTheSelection) {
    for (const auto& [chart, key] :
         {std::pair(u"Chores"_s, Qt::Key_Return), std::pair(u"Garden"_s, Qt::Key_Enter)}) {
        HandOn(NewChartWithJob(chart), {0, 1});
        Boxes.Expect(AllCreated);
        Press(List(), key);
        Settle();
        EXPECT_EQ(Rows(chart + u" Anna"_s), QStringList{RowOf(u"Anna"_s)});
        EXPECT_EQ(Rows(chart + u" Ben"_s), QStringList{RowOf(u"Ben"_s)});
        EXPECT_FALSE(Database().ChartExist(chart + u" Mary Ann"_s));
        EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr);
    }
}

TEST_F(SaveForPeople, TypedNameIsCutToItsFirstWord) {
    HandOn(NewChartWithJob(u"Dish Duty"_s), {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(TableNames().value(0), u"Dish Anna"_s);
    EXPECT_FALSE(Database().ChartExist(u"Dish Duty"_s));
}

TEST_F(SaveForPeople, ChildWithABlankInItsNameKeepsTheFirstWordWhenReopened) {
    HandOn(NewChartWithJob(u"Chores"_s), {2});
    Boxes.Expect(CreatedFor(u"Mary Ann"_s));
    Ok();
    ChartEditor& editor = OpenChart(u"Chores Mary Ann"_s);
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s).size(), 1);
}

TEST_F(SaveForPeople, ChartOfOneChildSavedForAnotherLeavesTheFirstAsItWas) {
    StoreChart(u"Chores Anna"_s, {Job(u"Old"_s)});
    const QStringList annas = Rows(u"Chores Anna"_s);
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s));
    HandOn(editor, {1});
    Boxes.Expect(CreatedFor(u"Ben"_s));
    Ok();
    EXPECT_EQ(Rows(u"Chores Ben"_s), QStringList{RowOf(u"Ben"_s, false, false)});
    EXPECT_EQ(Rows(u"Chores Anna"_s), annas);
}

TEST_F(SaveForPeople, OpenedChartSavedForNobodyIsLostToItsChild) {
    StoreChart(u"Chores Anna"_s, {Job(u"Sweep"_s, u"Wed"_s)});
    HandOn(OpenChart(u"Chores Anna"_s));
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Nobody"_s, false, false)});
    CurrentUser = u"Anna"_s;
    QListWidget offered;
    ListNames names(offered);
    Database().PopulateChartList(names, true);
    EXPECT_EQ(offered.count(), 0);
}

TEST_F(SaveForPeople, HistoryKeepsTheTicksOfAChartThatIsSavedOver) {
    StoreChart(u"Chores Anna"_s, {Job(u"Sweep"_s, u"Wed"_s)});
    Tick(u"Chores Anna"_s);
    ASSERT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s, true, false)});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    editor.SetRow(0, Job(u"Mop"_s, u"Thu"_s, u"4"_s));
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(Rows(u"History Chores Anna from: 3/4/2001"_s),
              QStringList{RowOf(u"Anna"_s, true, false)});
    EXPECT_EQ(Rows(u"Chores Anna"_s),
              QStringList{u"Mop|Thu|Mum|Easy|4|0|2001-03-04|2001-03-10|Anna|0"_s});
}

TEST_F(SaveForPeople, NewChartTakesThePlaceOfTheChildsChartOfThatFirstWord) {
    StoreChart(u"Chores Anna"_s, {Job(u"Old"_s)});
    HandOn(NewChartWithJob(u"Chores"_s), {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s)});
    EXPECT_TRUE(Rows(u"History Chores Anna from: 3/4/2001"_s).value(0).startsWith(u"Old|"_s));
}

TEST_F(SaveForPeople, ChartThatDiffersInCaseOnlyTakesThePlaceOfTheOther) {
    StoreChart(u"Dishes"_s, {Job(u"Old"_s)}, QString());
    HandOn(NewChartWithJob(u"dishes"_s));
    Ok();
    EXPECT_EQ(Rows(u"dishes"_s), QStringList{RowOf(u"Nobody"_s)});
    EXPECT_FALSE(TableNames().contains(u"Dishes"_s));
}

TEST_F(SaveForPeople, RangesBecomeSingleDaysAndEmptyRowsBlanks) {
    ChartEditor& editor = NewChart(u"Chores"_s);
    AddJobs(editor, 1);
    editor.SetRow(0, {u"Bed"_s, u"Mon-Fri"_s, u"Mum"_s, u"Easy"_s, u"1x"_s});
    editor.SetRow(1, {});
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    const QStringList rows = Rows(u"Chores Anna"_s);
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows.value(4), u"Bed|Fri|Mum|Easy|1|0|2001-03-04|2001-03-10|Anna|-1"_s);
    EXPECT_EQ(rows.value(5), u" | | | |0|0|<null>|<null>|<null>|0"_s);
}

TEST_F(SaveForPeople, EditorStaysLoadedAndHiddenAfterTheSave) {
    ChartEditor& editor = NewChartWithJob(u"Chores"_s);
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(EditorAt(0), &editor);
    EXPECT_FALSE(Shown(editor));
    EXPECT_EQ(Texts(editor), QStringList{u"Sweep"_s});
}

TEST_F(SaveForPeople, DefaultEditorIsUnloadedAfterTheSave) {
    ChartEditor& editor = NewChartWithJob(u"Chores"_s);
    // Of itself its load looks for the table of a chart without a name, and fails.
    RegisterForm(ChartEditor::FormName, [] {
        auto* form = new ChartEditor;
        form->IsNewChart = true;
        return form;
    });
    Default<ChartEditor>();
    ASSERT_NE(ExistingForm(u"ChartEditor"_s), nullptr);
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes,
                 [] { EXPECT_EQ(ExistingForm(u"DisplayAllPeople"_s), nullptr); });
    Ok();
    EXPECT_EQ(ExistingForm(u"ChartEditor"_s), nullptr);
    EXPECT_EQ(EditorAt(0), &editor);
}

TEST_F(SaveForPeople, FailedSaveIsReportedAndEndsTheOperationThere) {
    ChartEditor& editor = NewChartWithJob(u"Chores"_s);
    AddJobs(editor, 1);
    editor.SetRow(1, Job(u"Mop"_s, u"Thu"_s, u"99999999999"_s));
    HandOn(editor, {0, 1});
    Boxes.ExpectError(ErrorNumber::Overflow);
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s)}) << "what was written stands";
    EXPECT_FALSE(Database().ChartExist(u"Chores Ben"_s));
    EXPECT_TRUE(Shown(People())) << "the form stays for another try";
}

TEST_F(SaveForPeople, TextLongerThanItsFieldIsReportedAndNeverCut) {
    ChartEditor& editor = NewChartWithJob(u"Chores"_s);
    for (const QString& column : {u"DayOfWeek"_s, u"AdultResponsable"_s, u"Difficulty"_s}) {
        auto& box = RowControl(editor, column, 0);
        Type(box, QString(256, u'x'));
        HandOn(editor, {0});
        Boxes.ExpectError(ErrorNumber::FieldTooSmall);
        Ok();
        Click(Find(People(), u"Cancel"_s));
        Database().DeleteChart(u"Chores Anna"_s);
        editor.Show();
        Settle();
        Type(box, QString(255, u'x'));
    }
    HandOn(editor, {0});
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    const QString whole(255, u'x');
    EXPECT_TRUE(Rows(u"Chores Anna"_s).value(0).startsWith(u"Sweep|%1|%1|%1|3|"_s.arg(whole)));
}

TEST_F(SaveForPeople, ChartNamedLikeTheAccountsTableTouchesNoAccount) {
    const QStringList accounts = Rows(u"USERS"_s);
    const QString refusal = u"The name \"users\" is kept for the accounts. "
                            "Please give the Dutygrid another one."_s;
    ChartEditor& editor = NewChartWithJob(u"users"_s);
    Boxes.Expect(DeleteQuestion, PromptAnswer::Yes);
    Boxes.ExpectError(ErrorNumber::InvalidProcedureCall, refusal);
    Click(editor.JobDelete[0]);
    EXPECT_TRUE(Shown(editor));
    HandOn(editor);
    Boxes.ExpectError(ErrorNumber::InvalidProcedureCall, refusal);
    Ok();
    EXPECT_TRUE(Shown(People())) << "a child may still be chosen";
    EXPECT_EQ(Rows(u"USERS"_s), accounts);
    EXPECT_EQ(TableNames(), QStringList());
    ClickRow(List(), 0);
    Boxes.Expect(CreatedFor(u"Anna"_s));
    Ok();
    EXPECT_EQ(Rows(u"users Anna"_s), QStringList{RowOf(u"Anna"_s)});
    EXPECT_EQ(Rows(u"USERS"_s), accounts);
}

TEST_F(SaveForPeople, SaveCanBeTriedAgainAfterAFailure) {
    ChartEditor& editor = NewChartWithJob(u"Chores"_s);
    AddJobs(editor, 1);
    editor.SetRow(1, Job(u"Mop"_s, u"Thu"_s, u"99999999999"_s));
    HandOn(editor, {0, 1});
    Boxes.ExpectError(ErrorNumber::Overflow);
    Ok();
    editor.SetRow(1, Job(u"Mop"_s, u"Thu"_s));
    Boxes.Expect(AllCreated);
    Ok();
    EXPECT_EQ(Rows(u"Chores Anna"_s).size(), 2);
    EXPECT_EQ(Rows(u"Chores Ben"_s).size(), 2);
}

TEST_F(SaveForPeople, AfterAFaultOkDoesItAllAndHistoryKeepsTheTicksOfTheWeek) {
    HandOn(NewChartWithJob(u"Chores"_s), {0, 1});
    Boxes.Expect(AllCreated);
    Ok();
    Tick(u"Chores Anna"_s);
    Tick(u"Chores Ben"_s);
    HandOn(NewChartWithJob(u"Chores"_s, u"Fri"_s), {0, 1});
    const QStringList names = TableNames();
    Boxes.ExpectError(ErrorNumber::EngineFault, u"disk I/O error"_s);
    {
        const FullDisk full(512);
        Ok();
    }
    Boxes.VerifyAllShown();
    EXPECT_EQ(TableNames(), names);
    EXPECT_EQ(Rows(u"Chores Anna"_s), QStringList{RowOf(u"Anna"_s, true)});
    ASSERT_NE(ExistingForm(u"DisplayAllPeople"_s), nullptr);
    EXPECT_EQ(People().ChartName, u"Chores"_s);
    EXPECT_EQ(People().SelectedCount(), 2);

    Boxes.Expect(AllCreated);
    Ok();
    for (const QString& child : {u"Anna"_s, u"Ben"_s}) {
        EXPECT_EQ(Rows(u"History Chores %1 from: 3/4/2001"_s.arg(child)),
                  QStringList{RowOf(child, true, false)});
        EXPECT_TRUE(Rows(u"Chores "_s + child).value(0).startsWith(u"Sweep|Fri|Mum|Easy|3|0|"_s));
    }
}
