#include "tests/common/Scripted.h"

#include "tests/common/PrintedPages.h"

#include <QPdfWriter>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <stdexcept>

ScriptedPrompts::~ScriptedPrompts() {
    VerifyAllShown();
}

void ScriptedPrompts::Expect(const QString& text, PromptAnswer answer,
                             std::function<void()> during) {
    expected_.append({text, answer, std::move(during)});
}

void ScriptedPrompts::ExpectError(ErrorNumber number, const QString& text) {
    Expect((text.isEmpty() ? RuntimeError(number) : RuntimeError(number, text)).Report());
    expected_.last().mayAdvise = true;
}

void ScriptedPrompts::ExpectMissingTable(const QString& table) {
    ExpectError(ErrorNumber::NoSuchTable,
                QStringLiteral("The database cannot find the table '%1'.").arg(table));
}

void ScriptedPrompts::VerifyAllShown() {
    for (const Expected& left : expected_)
        ADD_FAILURE() << "A box did not come: " << left.text.toStdString();
    expected_.clear();
}

const Prompt& ScriptedPrompts::Last() const {
    if (shown_.isEmpty())
        throw std::runtime_error("no box was shown");
    return shown_.last();
}

PromptAnswer ScriptedPrompts::Show(const Prompt& prompt) {
    shown_.append(prompt);
    if (expected_.isEmpty()) {
        ADD_FAILURE() << "Unexpected box: " << prompt.Text.toStdString();
        return prompt.Buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
    }
    const Expected next = expected_.takeFirst();
    const bool isAdvised =
        next.mayAdvise && prompt.Text.startsWith(next.text + QLatin1String("\n\n"));
    EXPECT_EQ(isAdvised ? next.text : prompt.Text, next.text);
    if (prompt.Buttons == PromptButtons::Ok)
        EXPECT_EQ(next.answer, PromptAnswer::Ok) << "the box has an Ok button only";
    else
        EXPECT_NE(next.answer, PromptAnswer::Ok) << "the box has Yes and No";
    if (next.during)
        next.during();
    return next.answer;
}

PromptAnswer RecordingPrompts::Show(const Prompt& prompt) {
    Shown += prompt.Text;
    return prompt.Buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
}

QStringList RecordingPrompts::Errors() const {
    return Shown.filter(QRegularExpression(QStringLiteral("^Run-time error")));
}

ScriptedDesktop::~ScriptedDesktop() {
    EXPECT_TRUE(FileAnswers.isEmpty()) << "an open-file dialog did not come";
    EXPECT_TRUE(ColorAnswers.isEmpty()) << "a colour dialog did not come";
}

std::optional<QString> ScriptedDesktop::OpenFile(const QString& initialFolder) {
    FileFolders += initialFolder;
    if (FileAnswers.isEmpty()) {
        ADD_FAILURE() << "Unexpected open-file dialog";
        return std::nullopt;
    }
    return FileAnswers.takeFirst();
}

std::optional<qint32> ScriptedDesktop::ChooseColor(qint32) {
    if (ColorAnswers.isEmpty()) {
        ADD_FAILURE() << "Unexpected colour dialog";
        return std::nullopt;
    }
    return ColorAnswers.takeFirst();
}

void ScriptedDesktop::ShellExecute(const QString& verb, const QString& target, int showState) {
    Opened += QStringLiteral("%1 %2 %3").arg(verb, target).arg(showState);
}

void ScriptedDesktop::ShowHelp(const QString& helpFile, int command) {
    Helped += QStringLiteral("%1 %2").arg(helpFile).arg(command);
}

void ScriptedDesktop::PlaySoundA(const QString& waveFile, quint32 flags) {
    Sounds += QStringLiteral("%1 %2").arg(waveFile).arg(flags);
}

std::unique_ptr<QPagedPaintDevice> PdfPrintTarget::Open() {
    pending_ = QStringLiteral("%1/Job%2.pdf").arg(folder_).arg(files_.size() + 1);
    auto device = std::make_unique<QPdfWriter>(pending_);
    device->setPageSize(Size);
    return device;
}

const QString& PdfPrintTarget::LastFile() const {
    if (files_.isEmpty())
        throw std::runtime_error("nothing was printed");
    return files_.last();
}

QString PdfPrintTarget::TextOf(const QString& file) {
    return WithoutLigatures(QString::fromUtf8(OutputOf(
        QStringLiteral("pdftotext"), {QStringLiteral("-layout"), file, QStringLiteral("-")})));
}
