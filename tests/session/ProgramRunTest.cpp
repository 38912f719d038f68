#include "session/ProgramRun.h"

#include "platform/printing/PrintNews.h"
#include "platform/printing/Printer.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "support/SoundFunctions.h"
#include "tests/common/RuntimeTest.h"
#include "tests/common/Scripted.h"

namespace {

class AnyForms : public SettingsForms {
public:
    void SelectVersion(bool) override {}
    qint32 BackColor() const override { return 0; }
    void SetBackColor(qint32) override {}
    void SetPicture(const QImage&) override {}
    void SetSoundMark(bool) override {}
};

TEST(ProgramRunTest, LeavesNobodyBehindWhoHearsOfPrints) {
    bool isTold = false;
    {
        const ProgramRun run({});
        SetPrintNews([&isTold](const PrintNews&) { isTold = true; });
    }
    TellPrintNews({.Printer = QStringLiteral("gone")});
    EXPECT_FALSE(isTold);
}

TEST(ProgramRunTest, LeavesNoFormsForTheSettingsAndNoSoundSwitchBehind) {
    AnyForms forms;
    bool isAsked = false;
    {
        const ProgramRun run({});
        SetSettingsForms(&forms);
        SetSoundSwitch([&isAsked] {
            isAsked = true;
            return false;
        });
    }
    EXPECT_ERROR(91, WriteSettings());
    PlaySoundEffect(QStringLiteral("Applause"));
    EXPECT_FALSE(isAsked);
}

/// The session's variables that are plain values, in the order of Session.h.
QVariantList Values() {
    return {CurrentUser,      CurrentState,      SchoolMode,      SchoolFlag,    SoundOn,
            SeeOtherAccounts, BackgroundPicture, BackgroundColor, ChartFormIndex};
}

TEST(ProgramRunTest, LeavesNothingOfItsSessionBehind) {
    const QVariantList atFirst = Values();
    QObject form;
    {
        const ProgramRun run({});
        CurrentUser = QStringLiteral("Mum");
        CurrentState = QStringLiteral("Teacher");
        SchoolMode = Version::School;
        SchoolFlag = 1;
        SoundOn = 2;
        SeeOtherAccounts = 3;
        BackgroundPicture = QStringLiteral("sea.png");
        BackgroundColor = 4;
        ChartFormIndex = 5;
        ChartEditors.RedimPreserve(0);
        ChartEditors.SetMaker([&form] { return FormSlots<ChartEditorRows>::Slot{&form, nullptr}; });
        ChartViewers.RedimPreserve(0);
        ChartViewers.SetMaker([&form] { return FormSlots<ChartViewerRows>::Slot{&form, nullptr}; });
        WeeklyReview = []() -> ChartMatrix& { throw std::runtime_error("no form here"); };
        for (const QVariant& value : Values())
            EXPECT_FALSE(atFirst.contains(value)) << value.toString().toStdString();
    }
    EXPECT_EQ(Values(), atFirst);
    EXPECT_EQ(atFirst, (QVariantList{QString(), QString(), qint16{0}, qint16{0}, qint16{0},
                                     qint16{0}, QString(), qint32{0}, qint16{0}}));
    EXPECT_ERROR(9, ChartEditors.Peek(0));
    EXPECT_ERROR(9, ChartViewers.Peek(0));
    ChartEditors.RedimPreserve(0);
    ChartViewers.RedimPreserve(0);
    EXPECT_ERROR(91, ChartEditors.At(0));
    EXPECT_ERROR(91, ChartViewers.At(0));
    ResetSession();
    EXPECT_FALSE(WeeklyReview);
}

TEST(ProgramRunTest, TakesItsSurroundingsAlong) {
    ScriptedPrompts boxes;
    ScriptedDesktop desktop;
    PdfPrintTarget paper{QString()};
    {
        const ProgramRun run({.Boxes = &boxes,
                              .Desktop = &desktop,
                              .Paper = &paper,
                              .ProgramFolder = QStringLiteral("/nowhere"),
                              .Today = QDate(2001, 3, 7)});
        EXPECT_EQ(&CurrentDesktop(), &desktop);
        EXPECT_EQ(ProgramFolder(), QStringLiteral("/nowhere"));
        EXPECT_EQ(Today(), QDate(2001, 3, 7));
    }
    EXPECT_ERROR(91, Tell(QStringLiteral("Nobody hears this.")));
    EXPECT_ERROR(91, CurrentDesktop());
    EXPECT_ERROR(482, Printer());
    EXPECT_NE(ProgramFolder(), QStringLiteral("/nowhere"));
    EXPECT_NE(Today(), QDate(2001, 3, 7));
}

} // namespace
