#include "platform/runtime/Prompts.h"

#include "tests/common/RuntimeTest.h"

namespace {

class PromptsTest : public RuntimeTest {};

TEST_F(PromptsTest, MessageHasTheProgramsTitleAndAnOkButton) {
    Boxes.Expect(QStringLiteral("Hello."));
    Tell(QStringLiteral("Hello."));
    const Prompt box = Boxes.Shown().value(0);
    EXPECT_EQ(box.Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(box.Buttons, PromptButtons::Ok);
    EXPECT_EQ(box.Icon, PromptIcon::None);
}

TEST_F(PromptsTest, OnlyYesGoesOn) {
    Boxes.Expect(QStringLiteral("Sure?"), PromptAnswer::Yes);
    Boxes.Expect(QStringLiteral("Sure?"), PromptAnswer::No);
    EXPECT_TRUE(Ask(QStringLiteral("Sure?")));
    EXPECT_FALSE(Ask(QStringLiteral("Sure?")));
    EXPECT_EQ(Boxes.Shown().value(0).Buttons, PromptButtons::YesNo);
}

TEST_F(PromptsTest, WithoutAnyoneToShowItAPromptRaises91) {
    SetPrompts(nullptr);
    EXPECT_ERROR(91, Tell(QStringLiteral("Hello.")));
    SetDesktop(nullptr);
    EXPECT_ERROR(91, CurrentDesktop());
}

TEST_F(PromptsTest, ReportOfAnErrorNeverRaises) {
    SetPrompts(nullptr);
    EXPECT_NO_THROW(ShowRuntimeError(RuntimeError(ErrorNumber::Overflow)));
}

TEST_F(PromptsTest, ErrorsCarryTheirStandardTexts) {
    const auto standardText = [](ErrorNumber number) { return RuntimeError(number).Text(); };
    EXPECT_EQ(standardText(ErrorNumber::InvalidProcedureCall),
              QStringLiteral("Invalid procedure call or argument"));
    EXPECT_EQ(standardText(ErrorNumber::Overflow), QStringLiteral("Overflow"));
    EXPECT_EQ(standardText(ErrorNumber::SubscriptOutOfRange),
              QStringLiteral("Subscript out of range"));
    EXPECT_EQ(standardText(ErrorNumber::TypeMismatch), QStringLiteral("Type mismatch"));
    EXPECT_EQ(standardText(ErrorNumber::BadFileNameOrNumber),
              QStringLiteral("Bad file name or number"));
    EXPECT_EQ(standardText(ErrorNumber::FileNotFound), QStringLiteral("File not found"));
    EXPECT_EQ(standardText(ErrorNumber::InputPastEndOfFile),
              QStringLiteral("Input past end of file"));
    EXPECT_EQ(standardText(ErrorNumber::PathFileAccessError),
              QStringLiteral("Path/File access error"));
    EXPECT_EQ(standardText(ErrorNumber::PathNotFound), QStringLiteral("Path not found"));
    EXPECT_EQ(standardText(ErrorNumber::ObjectVariableNotSet),
              QStringLiteral("Object variable or With block variable not set"));
    EXPECT_EQ(standardText(ErrorNumber::InvalidUseOfNull), QStringLiteral("Invalid use of Null"));
    EXPECT_EQ(standardText(ErrorNumber::InvalidPicture), QStringLiteral("Invalid picture"));
    EXPECT_EQ(standardText(ErrorNumber::PrinterError), QStringLiteral("Printer error"));
    EXPECT_EQ(standardText(ErrorNumber::EngineFault),
              QStringLiteral("The database reported an error"));
    EXPECT_EQ(standardText(ErrorNumber::NoCurrentRecord), QStringLiteral("No current record."));
    EXPECT_EQ(standardText(ErrorNumber::NoSuchTable),
              QStringLiteral("The database cannot find the table"));
    EXPECT_EQ(standardText(ErrorNumber::FieldTooSmall),
              QStringLiteral("The field is too small to accept the amount of data you attempted "
                             "to add."));
}

TEST_F(PromptsTest, ReportsOfErrorsTellTheirNumberAndTheirText) {
    const RuntimeError error(ErrorNumber::PathNotFound);
    EXPECT_EQ(error.Report(), QStringLiteral("Run-time error '76':\n\nPath not found"));
    EXPECT_STREQ(error.what(), "Run-time error '76':\n\nPath not found");
    EXPECT_EQ(RuntimeError(ErrorNumber::EngineFault, QStringLiteral("disk full")).Report(),
              QStringLiteral("Run-time error '3000':\n\ndisk full"));
}

} // namespace
