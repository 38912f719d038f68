#include "platform/runtime/Prompts.h"

#include "tests/common/RuntimeTest.h"

#include <utility>

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
    const std::pair<ErrorNumber, const char*> standardTexts[] = {
        {ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"},
        {ErrorNumber::Overflow, "Overflow"},
        {ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
        {ErrorNumber::TypeMismatch, "Type mismatch"},
        {ErrorNumber::BadFileNameOrNumber, "Bad file name or number"},
        {ErrorNumber::FileNotFound, "File not found"},
        {ErrorNumber::InputPastEndOfFile, "Input past end of file"},
        {ErrorNumber::PathFileAccessError, "Path/File access error"},
        {ErrorNumber::PathNotFound, "Path not found"},
        {ErrorNumber::ObjectVariableNotSet, "Object variable or With block variable not set"},
        {ErrorNumber::InvalidUseOfNull, "Invalid use of Null"},
        {ErrorNumber::InvalidPicture, "Invalid picture"},
        {ErrorNumber::PrinterError, "Printer error"},
        {ErrorNumber::EngineFault, "The database reported an error"},
        {ErrorNumber::NoCurrentRecord, "No current record."},
        {ErrorNumber::NoSuchTable, "The database cannot find the table"},
        {ErrorNumber::FieldTooSmall,
         "The field is too small to accept the amount of data you attempted "
         "to add."}};
    for (const auto& [number, text] : standardTexts)
        EXPECT_EQ(RuntimeError(number).Text(), QString::fromUtf8(text));
}

TEST_F(PromptsTest, ReportsOfErrorsTellTheirNumberAndTheirText) {
    const RuntimeError error(ErrorNumber::PathNotFound);
    EXPECT_EQ(error.Report(), QStringLiteral("Run-time error '76':\n\nPath not found"));
    EXPECT_STREQ(error.what(), "Run-time error '76':\n\nPath not found");
    EXPECT_EQ(RuntimeError(ErrorNumber::EngineFault, QStringLiteral("disk full")).Report(),
              QStringLiteral("Run-time error '3000':\n\ndisk full"));
}

} // namespace
