#include "platform/runtime/TextFiles.h"

#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/WholeFiles.h"

#include <cmath>

namespace {

/// Far more than anybody writes into such a file.
constexpr qint64 MostBytes = 16 << 20;

bool IsLineEnd(QChar character) {
    return character == QLatin1Char('\r') || character == QLatin1Char('\n');
}

bool IsBlank(QChar character) {
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

} // namespace

InputFile::InputFile(const QString& path)
    : text_(QString::fromUtf8(ReadWholeFile(path, MostBytes))) {}

QString InputFile::InputText() {
    if (AtEnd())
        throw RuntimeError(ErrorNumber::InputPastEndOfFile);
    while (!AtEnd() && IsBlank(text_.at(position_)))
        ++position_;

    QString item;
    if (!AtEnd() && text_.at(position_) == QLatin1Char('"')) {
        const qsizetype start = ++position_;
        const qsizetype quote = text_.indexOf(QLatin1Char('"'), start);
        const qsizetype end = quote < 0 ? text_.size() : quote;
        item = text_.mid(start, end - start);
        position_ = quote < 0 ? end : end + 1;
        while (!AtEnd() && IsBlank(text_.at(position_)))
            ++position_;
        // What stands between the closing quote and the next delimiter begins the next item.
        if (!AtEnd() && text_.at(position_) != QLatin1Char(',') && !IsLineEnd(text_.at(position_)))
            return item;
    } else {
        const qsizetype start = position_;
        while (!AtEnd() && text_.at(position_) != QLatin1Char(',') &&
               !IsLineEnd(text_.at(position_)))
            ++position_;
        item = text_.mid(start, position_ - start);
    }

    // One delimiter belongs to the item: a comma, or a line's end of one or two characters.
    if (!AtEnd()) {
        const bool carriageReturn = text_.at(position_) == QLatin1Char('\r');
        ++position_;
        if (carriageReturn && !AtEnd() && text_.at(position_) == QLatin1Char('\n'))
            ++position_;
    }
    return item;
}

double InputFile::InputNumber() {
    const QString item = InputText().trimmed();
    bool isNumber = false;
    const double number = item.toDouble(&isNumber);
    // The platform reads "inf" and "nan" as numbers.
    if (!isNumber || !std::isfinite(number))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return number;
}

OutputFile::OutputFile(const QString& path) : path_(path) {
    RefuseToReplace(path);
}

void OutputFile::PrintText(const QString& text) {
    content_ += text.toUtf8() + "\r\n";
}

void OutputFile::PrintNumber(qint64 number) {
    PrintText((number < 0 ? QString() : QStringLiteral(" ")) + QString::number(number) +
              QLatin1Char(' '));
}

void OutputFile::Close() {
    ReplaceFile(path_, content_);
}
