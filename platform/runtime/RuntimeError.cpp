#include "platform/runtime/RuntimeError.h"

namespace {

QString StandardText(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::BadFileNameOrNumber:
        return QStringLiteral("Bad file name or number");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::InputPastEndOfFile:
        return QStringLiteral("Input past end of file");
    case ErrorNumber::PathFileAccessError:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::ObjectVariableNotSet:
        return QStringLiteral("Object variable or With block variable not set");
    case ErrorNumber::InvalidUseOfNull:
        return QStringLiteral("Invalid use of Null");
    case ErrorNumber::InvalidPicture:
        return QStringLiteral("Invalid picture");
    case ErrorNumber::PrinterError:
        return QStringLiteral("Printer error");
    case ErrorNumber::EngineFault:
        return QStringLiteral("The database reported an error");
    case ErrorNumber::NoCurrentRecord:
        return QStringLiteral("No current record.");
    case ErrorNumber::NoSuchTable:
        return QStringLiteral("The database cannot find the table");
    case ErrorNumber::FieldTooSmall:
        return QStringLiteral(
            "The field is too small to accept the amount of data you attempted to add.");
    }
    return {};
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, StandardText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const QString& text)
    : RuntimeError(static_cast<int>(number), text) {}

RuntimeError::RuntimeError(int number, const QString& text, const QString& source)
    : number_(number), text_(text), source_(source), what_(Report().toUtf8()) {}

void RuntimeError::SetAdvice(const QString& advice) {
    advice_ = advice;
    what_ = Report().toUtf8();
}

QString RuntimeError::Report() const {
    const QString below = advice_.isEmpty() ? QString() : QStringLiteral("\n\n") + advice_;
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(number_).arg(text_) + below;
}
