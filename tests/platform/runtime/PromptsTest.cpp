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
    EXPECT_EQ(RuntimeError(ErrorNumber::Overflow).Report(),
              QStringLiteral("Run-time error '6':\n\nOverflow"));
    EXPECT_STREQ(RuntimeError(ErrorNumber::PathNotFound).what(),
                 "Run-time error '76':\n\nPath not found");
    for (const ErrorNumber number :
         {ErrorNumber::SubscriptOutOfRange, ErrorNumber::TypeMismatch,
          ErrorNumber::BadFileNameOrNumber, ErrorNumber::FileNotFound,
          ErrorNumber::InputPastEndOfFile, ErrorNumber::PathFileAccessError,
          ErrorNumber::ObjectVariableNotSet, ErrorNumber::InvalidUseOfNull,
          ErrorNumber::InvalidPicture, ErrorNumber::PrinterError, ErrorNumber::EngineFault,
          ErrorNumber::NoCurrentRecord, ErrorNumber::NoSuchTable, ErrorNumber::FieldTooSmall})
        EXPECT_FALSE(RuntimeError(number).Text().isEmpty()) << static_cast<int>(number);
}

} // namespace
