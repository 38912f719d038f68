#pragma once

#include <QString>
#include <exception>

/// The numbers of the run-time errors that the program itself raises.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    InputPastEndOfFile = 62,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidUseOfNull = 94,
    InvalidPicture = 481,
    PrinterError = 482,
    /// A fault of the database engine; the text is the engine's own.
    EngineFault = 3000,
    NoCurrentRecord = 3021,
    NoSuchTable = 3078,
    FieldTooSmall = 3163
};

/// A failed operation: ends the operation and is reported at the edge of the event handler.
class RuntimeError : public std::exception {
public:
    /// The standard text of `number`.
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, const QString& text);
    RuntimeError(int number, const QString& text, const QString& source = QString());

    int Number() const { return number_; }
    const QString& Text() const { return text_; }
    /// The class that raised the error by a number of its own; "" for all others. Shown to nobody.
    const QString& Source() const { return source_; }
    /// Which file the error is about, and the way out; "" where there is nothing to say.
    const QString& Advice() const { return advice_; }
    void SetAdvice(const QString& advice);
    /// What the user is shown: "Run-time error '6':", an empty line and the text; where there is
    /// advice, another empty line and the advice.
    QString Report() const;
    const char* what() const noexcept override { return what_.constData(); }

    /// True where no session can go on after this error (start-up, settings, registry).
    bool EndsRun() const { return endsRun_; }
    void MarkAsEndOfRun() { endsRun_ = true; }

private:
    int number_;
    QString text_;
    QString source_;
    QString advice_;
    QByteArray what_;
    bool endsRun_ = false;
};

/// Runs one statement and drops the RuntimeError that it raises.
template <class Statement>
void WithErrorsSkipped(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError&) {
        // Skipping is what the caller asks for: the next statement runs.
    }
}

/// The same, but a fault of the database engine is raised: what the statement was to read is
/// written back later on.
template <class Statement>
void WithErrorsButFaultsSkipped(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        if (error.Number() == static_cast<int>(ErrorNumber::EngineFault))
            throw;
    }
}

/// Runs statements whose failure ends the run of the program.
template <class Statement>
void WithErrorsEndingTheRun(Statement&& statement) {
    try {
        statement();
    } catch (RuntimeError& error) {
        error.MarkAsEndOfRun();
        throw;
    }
}
