#pragma once

#include "platform/printing/Printer.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Prompts.h"
#include "platform/runtime/RuntimeError.h"

#include <QList>
#include <QPageSize>
#include <QString>
#include <QStringList>
#include <functional>

/// Message boxes with scripted answers. Each box must be the next expected one; an unexpected or a
/// left-over one fails the test.
class ScriptedPrompts : public Prompts {
public:
    ~ScriptedPrompts() override;

    /// The next box shows `text` and is answered so. `during` runs while the box stands.
    void Expect(const QString& text, PromptAnswer answer = PromptAnswer::Ok,
                std::function<void()> during = {});

    /// The next box reports a run-time error, with its standard text if it has none of its own, and
    /// with any advice.
    void ExpectError(ErrorNumber number, const QString& text = {});
    /// The next box reports that the database has no table of that name.
    void ExpectMissingTable(const QString& table);

    /// Fails the test if expected boxes have not come.
    void VerifyAllShown();

    /// The boxes shown so far.
    const QList<Prompt>& Shown() const { return shown_; }
    /// The box shown last. Fails the test hard if there was none.
    const Prompt& Last() const;

    PromptAnswer Show(const Prompt& prompt) override;

private:
    struct Expected {
        QString text;
        PromptAnswer answer;
        std::function<void()> during;
        /// Whether the box may say more below: which file it is about, and the way out.
        bool mayAdvise = false;
    };
    QList<Expected> expected_;
    QList<Prompt> shown_;
};

/// Message boxes that are all answered with Ok or No; keeps what they showed.
class RecordingPrompts : public Prompts {
public:
    QStringList Shown;

    PromptAnswer Show(const Prompt& prompt) override;

    /// The reports of run-time errors among them.
    QStringList Errors() const;
};

/// A desktop that answers from queues and keeps what it was asked. A question without an answer
/// and an answer without a question fail the test.
class ScriptedDesktop : public Desktop {
public:
    ~ScriptedDesktop() override;

    QList<std::optional<QString>> FileAnswers;
    QList<std::optional<qint32>> ColorAnswers;
    QStringList FileFolders;
    QStringList Opened; ///< "verb target showState"
    QStringList Helped; ///< "file command"
    QStringList Sounds; ///< "file flags"
    bool LessMotion = true;

    std::optional<QString> OpenFile(const QString& initialFolder) override;
    std::optional<qint32> ChooseColor(qint32 initial) override;
    void ShellExecute(const QString& verb, const QString& target, int showState) override;
    void ShowHelp(const QString& helpFile, int command) override;
    void PlaySoundA(const QString& waveFile, quint32 flags) override;
    bool WantsLessMotion() override { return LessMotion; }
};

/// Print jobs into PDF files of a folder: Job1.pdf, Job2.pdf, ...
class PdfPrintTarget : public PrintTarget {
public:
    explicit PdfPrintTarget(QString folder) : folder_(std::move(folder)) {}
    std::unique_ptr<QPagedPaintDevice> Open() override;
    void Sent(const QString& name) override {
        files_ += pending_;
        names_ += name;
    }
    bool UsesBothSides() const override { return BothSides; }

    /// Whether the paper is printed on both sides.
    bool BothSides = false;
    QPageSize Size{QPageSize::A4};

    /// The files of the jobs sent so far.
    const QStringList& Files() const { return files_; }
    /// The file of the job sent last. Fails the test hard if there is none.
    const QString& LastFile() const;
    /// What the jobs sent so far show.
    const QStringList& Names() const { return names_; }
    /// The text of a job's pages, by pdftotext -layout; pages end in a form feed. Throws
    /// std::runtime_error if it cannot be read.
    static QString TextOf(const QString& file);

private:
    QString folder_;
    QString pending_;
    QStringList files_;
    QStringList names_;
};
