#include "tests/authoring/AuthoringTest.h"
#include "tests/common/ReadLock.h"

#include <QApplication>
#include <QLineEdit>
#include <limits>

class NewDialog : public AuthoringTest {
protected:
    void SetUp() override {
        AuthoringTest::SetUp();
        Dialog().Show();
        Settle();
    }

    static Newfrm& Dialog() { return Default<Newfrm>(); }
    static QLineEdit& Name() { return Find<QLineEdit>(Dialog(), u"NameOfNewChart"_s); }
    static QWidget& Ok() { return Find(Dialog(), u"Ok"_s); }

    static int OpenEditors() {
        int count = 0;
        for (int slot = 0; slot < ChartFormIndex; ++slot)
            count += EditorAt(slot) != nullptr ? 1 : 0;
        return count;
    }

    const QString TakenMessage = u"Please try another name, this one already exists."_s;
};

TEST_F(NewDialog, ControlsBearTheirCaptions) {
    EXPECT_EQ(Dialog().Caption(), u"Sparkit Dutygrid"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Label1"_s), u"Name of Sparkit Dutygrid"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Ok"_s), u"Ok"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Cancel"_s), u"Cancel"_s);
    Find(Dialog(), u"Shape1"_s);
}

TEST_F(NewDialog, NameOpensAnEditorInTheNextSlot) {
    ChartFormIndex = 4;
    Type(Name(), u"Dish Duty"_s);
    Click(Ok());
    EXPECT_EQ(ChartFormIndex, 5);
    ASSERT_NE(EditorAt(4), nullptr);
    const ChartEditor& editor = *EditorAt(4);
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(editor.Caption(), u"Editing Dish Duty chart"_s);
    EXPECT_EQ(editor.ChartName, u"Dish Duty"_s);
    EXPECT_EQ(editor.FormIndex, 4);
    EXPECT_TRUE(editor.IsNewChart);
    EXPECT_FALSE(editor.NextWeek);
    EXPECT_EQ(editor.KidName, QString());
}

TEST_F(NewDialog, StaysLoadedAndHiddenAfterASuccessAndComesBackEmpty) {
    const Newfrm* dialog = &Dialog();
    Type(Name(), u"Chores"_s);
    Click(Ok());
    EXPECT_EQ(ExistingForm(u"Newfrm"_s), dialog);
    EXPECT_FALSE(Shown(*dialog));
    EXPECT_EQ(Name().text(), u"Chores"_s);
    Dialog().Show();
    Settle();
    EXPECT_EQ(Name().text(), QString());
}

TEST_F(NewDialog, EnterInTheNameIsOk) {
    Type(Name(), u"Chores"_s);
    Press(Name(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(OpenEditors(), 1);
}

TEST_F(NewDialog, EmptyNameDoesNothingWithoutAWord) {
    Click(Ok());
    Press(Name(), Qt::Key_Return);
    EXPECT_TRUE(Shown(Dialog()));
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(NewDialog, CancelUnloads) {
    Type(Name(), u"Chores"_s);
    Click(Find(Dialog(), u"Cancel"_s));
    EXPECT_EQ(ExistingForm(u"Newfrm"_s), nullptr);
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(NewDialog, NameInUseIsRefusedAgainAndAgainUntilItChangesAndThenNothingIsMade) {
    StoreChart(u"Chores"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Boxes.Expect(TakenMessage);
    Boxes.Expect(TakenMessage);
    Boxes.Expect(TakenMessage, PromptAnswer::Ok, [] { Name().setText(u"Other"_s); });
    Click(Ok());
    EXPECT_EQ(ChartFormIndex, 0);
    EXPECT_TRUE(Shown(Dialog()));
    EXPECT_EQ(Name().text(), u"Other"_s);
    EXPECT_EQ(Boxes.Last().Title, u"Sparkit Dutygrid"_s);
    EXPECT_TRUE(Boxes.Last().LeavesFormsReachable);
    Click(Ok());
    EXPECT_EQ(OpenEditors(), 1);
}

TEST_F(NewDialog, NameEmptiedWhileTheMessageStandsEndsItToo) {
    StoreChart(u"Chores"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Boxes.Expect(TakenMessage, PromptAnswer::Ok, [] { Name().clear(); });
    Click(Ok());
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(NewDialog, OkWhileTheMessageStandsDoesNothing) {
    StoreChart(u"Chores"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Boxes.Expect(TakenMessage, PromptAnswer::Ok, [] {
        QTest::mouseClick(&Ok(), Qt::LeftButton);
        Name().setText(u"Other"_s);
        Press(Name(), Qt::Key_Return);
        EXPECT_EQ(ChartFormIndex, 0);
    });
    Click(Ok());
    EXPECT_EQ(ChartFormIndex, 0);
    EXPECT_TRUE(Shown(Dialog()));
}

TEST_F(NewDialog, CancelWhileTheMessageStandsEndsItWithNothingMade) {
    StoreChart(u"Chores"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Boxes.Expect(TakenMessage, PromptAnswer::Ok, [] {
        QTest::mouseClick(&Find(Dialog(), u"Cancel"_s), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    Click(Ok());
    EXPECT_EQ(ExistingForm(u"Newfrm"_s), nullptr);
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(NewDialog, EndOfTheProcessEndsTheMessage) {
    StoreChart(u"Chores"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Boxes.Expect(TakenMessage, PromptAnswer::Ok, [] { EndProcess(); });
    Click(Ok());
    EXPECT_EQ(Ends.size(), 1);
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(NewDialog, NameIsComparedWithWholeTableNamesAndWithCase) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Dishes"_s, {Job(u"a"_s)});
    Type(Name(), u"Chores"_s);
    Click(Ok());
    EXPECT_EQ(LastEditor().ChartName, u"Chores"_s);
    Dialog().Show();
    Settle();
    Type(Name(), u"dishes"_s);
    Click(Ok());
    EXPECT_EQ(LastEditor().ChartName, u"dishes"_s);
    EXPECT_EQ(ChartFormIndex, 2);
}

TEST_F(NewDialog, AnyTextIsAName) {
    const QStringList names = {u"O'Brien \"x\""_s, u"a/b\\c..d"_s, u"   "_s,          u"%1 %2"_s,
                               u"\U0001F600"_s,    u"Straße"_s,    QString(200, u'n')};
    for (const QString& name : names) {
        Dialog().Show();
        Settle();
        Name().setText(name);
        Click(Ok());
        EXPECT_EQ(LastEditor().ChartName, name);
        EXPECT_EQ(LastEditor().Caption(), u"Editing "_s + name + u" chart"_s);
    }
    EXPECT_EQ(ChartFormIndex, names.size());
}

TEST_F(NewDialog, NameOfAnyLengthIsTakenWhole) {
    const QString name(300, u'n');
    Type(Name(), name);
    Click(Ok());
    EXPECT_EQ(LastEditor().ChartName, name);
}

TEST_F(NewDialog, CounterBeyondSixteenBitsIsARunTimeErrorAndLeavesNoEditor) {
    ChartFormIndex = std::numeric_limits<qint16>::max();
    Type(Name(), u"Chores"_s);
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(Ok());
    EXPECT_EQ(ChartFormIndex, std::numeric_limits<qint16>::max());
    EXPECT_EQ(EditorAt(ChartFormIndex), nullptr);
}

class OpenDialog : public AuthoringTest {
protected:
    static Openfrm& Dialog() { return Default<Openfrm>(); }
    static QListWidget& List() { return Find<QListWidget>(Dialog(), u"ChartList"_s); }
    static void Open() {
        Dialog().Show();
        Settle();
    }
};

TEST_F(OpenDialog, ControlsBearTheirCaptions) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    EXPECT_EQ(Dialog().Caption(), u"Open Sparkit Dutygrid"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Label1"_s), u"Open Dutygrid"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Ok"_s), u"Ok"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Cancel"_s), u"Cancel"_s);
    Find(Dialog(), u"Shape1"_s);
}

TEST_F(OpenDialog, ListsTheChartsOfAllChildrenAndWeeksButNoOtherTable) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Old Ben"_s, {Job(u"a"_s)}, u"Ben"_s, {1998, 1, 4}, {1998, 1, 10}, true);
    StoreChart(u"Later"_s, {Job(u"a"_s)}, QString(), {2002, 1, 6}, {2002, 1, 12});
    Arrange([] { Database().DuplicateChartHistory(u"Chores Anna"_s); });
    StoreChart(u"Printed"_s, {Job(u"a"_s)});
    const QStringList before = TableNames();
    Open();
    EXPECT_EQ(Entries(List()), (QStringList{u"Chores Anna"_s, u"Later"_s, u"Old Ben"_s}));
    EXPECT_FALSE(Find(Dialog(), u"Ok"_s).isHidden());
    EXPECT_EQ(TableNames(), before) << "listing rolls nothing on";
}

TEST_F(OpenDialog, WithoutAnyChartThereIsNoOk) {
    Open();
    EXPECT_TRUE(Find(Dialog(), u"Ok"_s).isHidden());
    Click(Find(Dialog(), u"Cancel"_s));
    EXPECT_EQ(ExistingForm(u"Openfrm"_s), nullptr);
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    EXPECT_FALSE(Find(Dialog(), u"Ok"_s).isHidden());
}

TEST_F(OpenDialog, ReturnToTheOpenFormRepeatsItsEntries) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    Default<Newfrm>().Show();
    Settle();
    Open();
    EXPECT_EQ(Entries(List()), (QStringList{u"Chores Anna"_s, u"Chores Anna"_s}));
}

TEST_F(OpenDialog, OkWithoutASelectionAsksForOne) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    EXPECT_EQ(Dialog().SelectedChart(), QString());
    Boxes.Expect(u"Please select a Dutygrid to open"_s);
    Click(Find(Dialog(), u"Ok"_s));
    EXPECT_TRUE(Shown(Dialog()));
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(OpenDialog, SelectedChartIsTheEntryClicked) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Chores Ben"_s, {Job(u"a"_s)});
    Open();
    ClickRow(List(), 0);
    ClickRow(List(), 1);
    EXPECT_EQ(Dialog().SelectedChart(), u"Chores Ben"_s);
}

TEST_F(OpenDialog, OkOpensTheChartInAnEditorAndUnloads) {
    StoreChart(u"Chores Anna"_s, {Job(u"Feed"_s), Job(u"Sweep"_s, u"Tue"_s, u"12"_s)});
    ChartFormIndex = 2;
    const ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    EXPECT_EQ(ChartFormIndex, 3);
    EXPECT_EQ(EditorAt(2), &editor);
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(editor.Caption(), u"Sparkit Dutygrid Editor"_s);
    EXPECT_EQ(editor.ChartName, u"Chores Anna"_s);
    EXPECT_EQ(editor.FormIndex, 2);
    EXPECT_FALSE(editor.IsNewChart);
    EXPECT_FALSE(editor.NextWeek);
    EXPECT_FALSE(Find(editor, u"ResetTime"_s).isHidden());
    EXPECT_FALSE(Find(editor, u"DeleteChart"_s).isHidden());
    EXPECT_EQ(Texts(editor), (QStringList{u"Feed"_s, u"Sweep"_s}));
    EXPECT_EQ(editor.Row(1).Points, u"12"_s);
    EXPECT_EQ(ExistingForm(u"Openfrm"_s), nullptr);
}

TEST_F(OpenDialog, DoubleClickOnAChartOpensIt) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Chores Ben"_s, {Job(u"b"_s)}, u"Ben"_s);
    Open();
    DoubleClickRow(List(), 1);
    EXPECT_EQ(LastEditor().ChartName, u"Chores Ben"_s);
    EXPECT_EQ(LastEditor().KidName, u"Ben"_s);
    EXPECT_EQ(ChartFormIndex, 1);
}

TEST_F(OpenDialog, DoubleClickOnTheEmptyPartIsOk) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    for (const bool isSelected : {false, true}) {
        if (isSelected)
            ClickRow(List(), 0);
        Boxes.Expect(u"Please select a Dutygrid to open"_s);
        // Its first click takes the selection away.
        DoubleClickEmptyPart(List());
        Boxes.VerifyAllShown();
        EXPECT_TRUE(Shown(Dialog()));
    }
    EXPECT_EQ(ChartFormIndex, 0);
}

TEST_F(OpenDialog, EnterInTheListIsOk) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Chores Ben"_s, {Job(u"b"_s)}, u"Ben"_s);
    Open();
    Boxes.Expect(u"Please select a Dutygrid to open"_s);
    Press(List(), Qt::Key_Return);
    Settle();
    EXPECT_TRUE(Shown(Dialog()));

    ClickRow(List(), 1);
    Press(List(), Qt::Key_Enter);
    Settle();
    EXPECT_EQ(LastEditor().ChartName, u"Chores Ben"_s);
    EXPECT_EQ(ExistingForm(u"Openfrm"_s), nullptr);
}

TEST_F(OpenDialog, SameChartTwiceGivesTwoEditorsAndTheLastSaveWins) {
    MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    ChartEditor& first = OpenChart(u"Chores Anna"_s);
    ChartEditor& second = OpenChart(u"Chores Anna"_s);
    EXPECT_NE(&first, &second);
    first.SetRow(0, Job(u"first"_s));
    second.SetRow(0, Job(u"second"_s));
    for (ChartEditor* editor : {&second, &first}) {
        Click(Find(*editor, u"CreateChart"_s));
        ClickRow(Find(Default<DisplayAllPeople>(), u"ListView1"_s), 0);
        Boxes.Expect(u"Anna's Sparkit Dutygrid has been created"_s);
        Click(Find(Default<DisplayAllPeople>(), u"Ok"_s));
    }
    ASSERT_EQ(Rows(u"Chores Anna"_s).size(), 1);
    EXPECT_TRUE(Rows(u"Chores Anna"_s).value(0).startsWith(u"first|"_s));
}

TEST_F(OpenDialog, ChartOfAnyWeekCanBeOpenedAndSavedAndKeepsItsWeek) {
    StoreChart(u"Past"_s, {Job(u"a"_s)}, u"Anna"_s, {1999, 12, 26}, {2000, 1, 1});
    StoreChart(u"Future"_s, {Job(u"a"_s)}, u"Anna"_s, {2038, 1, 17}, {2038, 1, 23});
    for (const QString& name : {u"Past"_s, u"Future"_s}) {
        ChartEditor& editor = OpenChart(name);
        editor.SetRow(0, Job(u"Sweep"_s));
        Click(Find(editor, u"CreateChart"_s));
        Click(Find(Default<DisplayAllPeople>(), u"Ok"_s));
    }
    EXPECT_EQ(Rows(u"Past"_s),
              QStringList{u"Sweep|Mon|Mum|Easy|3|0|1999-12-26|2000-01-01|Nobody|0"_s});
    EXPECT_EQ(Rows(u"Future"_s),
              QStringList{u"Sweep|Mon|Mum|Easy|3|0|2038-01-17|2038-01-23|Nobody|0"_s});
}

TEST_F(OpenDialog, ChartOfAChildThatWasDeletedKeepsTheChildOfItsTable) {
    StoreChart(u"Chores Gone"_s, {Job(u"a"_s)}, u"Gone"_s);
    EXPECT_EQ(OpenChart(u"Chores Gone"_s).KidName, u"Gone"_s);
}

TEST_F(OpenDialog, ChartThatCannotBeReadLeavesNoEditorAndItsSlotFree) {
    {
        const auto tables = TableStore::OpenDatabase(Path(u"Database/Charts.mdb"_s));
        tables->CreateTable(u"A list"_s, {{u"Instructions"_s, FieldType::Memo}});
        Recordset rows = tables->OpenRecordset(u"A list"_s);
        rows.AddNew();
        rows.Update();
        tables->Commit();
    }
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    Open();
    ClickRow(List(), 0);
    Boxes.ExpectError(ErrorNumber::SubscriptOutOfRange);
    Click(Find(Dialog(), u"Ok"_s));
    EXPECT_EQ(ChartFormIndex, 0);
    EXPECT_EQ(EditorAt(0), nullptr);
    EXPECT_TRUE(Shown(Dialog()));
    ClickRow(List(), 1);
    Click(Find(Dialog(), u"Ok"_s));
    EXPECT_EQ(LastEditor().FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(Texts(LastEditor()), QStringList{u"a"_s});
}

class DeleteDialog : public AuthoringTest {
protected:
    static DeleteChartForm& Dialog() { return Default<DeleteChartForm>(); }
    static ChartEditor& OpenConfirmation() {
        StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
        Database().DuplicateChartHistory(u"Chores Anna"_s);
        ChartEditor& editor = OpenChart(u"Chores Anna"_s);
        Click(Find(editor, u"DeleteChart"_s));
        return editor;
    }
};

TEST_F(DeleteDialog, ControlsBearTheirCaptions) {
    OpenConfirmation();
    EXPECT_EQ(Dialog().Caption(), u"Delete Sparkit Dutygrid?"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Label1"_s),
              u"Are you sure you want to delete this Dutygrid?"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"Yes"_s), u"Yes"_s);
    EXPECT_EQ(CaptionOf(Dialog(), u"No"_s), u"No"_s);
    Find(Dialog(), u"Shape1"_s);
}

TEST_F(DeleteDialog, TheKeyboardBeginsOnNoEachTime) {
    OpenConfirmation();
    EXPECT_EQ(QApplication::focusWidget(), &Find(Dialog(), u"No"_s));
    Find(Dialog(), u"Yes"_s).setFocus();
    DefaultForm(u"frmAboutDutygrid"_s).Show();
    Settle();
    Dialog().SetFocus();
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), &Find(Dialog(), u"No"_s)) << "also on the way back";
    Press(Find(Dialog(), u"No"_s), Qt::Key_Return);
    Settle();
    EXPECT_TRUE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
}

TEST_F(DeleteDialog, YesDropsTheChartAndHidesItsEditorWithoutAQuestion) {
    ChartEditor& editor = OpenConfirmation();
    Click(Find(Dialog(), u"Yes"_s));
    EXPECT_EQ(TableNames(), QStringList{u"History Chores Anna from: 3/4/2001"_s});
    EXPECT_FALSE(Shown(editor));
    EXPECT_EQ(EditorAt(0), &editor);
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
}

TEST_F(DeleteDialog, AChartThatCannotBeDeletedStaysInItsEditor) {
    const ChartEditor& editor = OpenConfirmation();
    Boxes.ExpectError(ErrorNumber::EngineFault, OtherCopyWrites);
    {
        const ReadLock lock(Path(u"Database/Charts.mdb"_s));
        Click(Find(Dialog(), u"Yes"_s));
    }
    EXPECT_TRUE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_TRUE(Shown(editor));
    EXPECT_TRUE(Shown(Dialog()));
    Click(Find(Dialog(), u"Yes"_s));
    EXPECT_FALSE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_FALSE(Shown(editor));
}

TEST_F(DeleteDialog, NoLeavesEverything) {
    const ChartEditor& editor = OpenConfirmation();
    Click(Find(Dialog(), u"No"_s));
    EXPECT_TRUE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
}

TEST_F(DeleteDialog, YesAfterTheEditorWasClosedStillDropsTheChart) {
    ChartEditor& editor = OpenConfirmation();
    Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
    Click(Find(editor, u"Close"_s));
    Click(Find(Dialog(), u"Yes"_s));
    EXPECT_FALSE(Database().ChartExist(u"Chores Anna"_s));
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
}

TEST_F(DeleteDialog, ChartThatHasGoneAlreadyIsReportedAndTheDialogStays) {
    OpenConfirmation();
    Database().DeleteChart(u"Chores Anna"_s);
    Boxes.ExpectMissingTable(u"Chores Anna"_s);
    Click(Find(Dialog(), u"Yes"_s));
    EXPECT_TRUE(Shown(Dialog()));
    Click(Find(Dialog(), u"No"_s));
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
}
