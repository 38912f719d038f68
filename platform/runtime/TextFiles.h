#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

class QSaveFile;

/// A text file read by the formatted input statement. UTF-8; lines end in CR LF, CR or LF.
class InputFile {
public:
    /// Raises 53 if the file is not there, 75 if it cannot be read, 76 if its folder is missing.
    explicit InputFile(const QString& path);

    /// True when nothing is left to read.
    bool AtEnd() const { return position_ >= text_.size(); }

    /// The next item as text: blanks before it are skipped; it ends at a comma or the line's end;
    /// one that begins with a double quote runs to the next double quote. Raises 62 at the end.
    QString InputText();

    /// The next item as a number. Blanks around it are skipped; an item that is no number raises
    /// 13. Raises 62 at the end of the file.
    double InputNumber();

private:
    QString text_;
    qsizetype position_ = 0;
};

/// Fills an open file and puts it in the place of the one there was, which stays until all has
/// been written. False if the disk refuses any part of it.
bool CommitWith(QSaveFile& file, const QByteArray& content);

/// A text file written anew, line by line. What was there stays until Close has written all.
class OutputFile {
public:
    /// Raises 76 if the folder is missing, 75 if the file cannot be written.
    explicit OutputFile(const QString& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// A text as it stands, then the line's end.
    void PrintText(const QString& text);

    /// A number with a blank or a minus sign before it and a blank behind, then the line's end.
    void PrintNumber(qint64 number);

    /// Puts the new file in the place of the old one. Raises 75 if the disk refuses it.
    void Close();

private:
    std::unique_ptr<QSaveFile> file_;
    QByteArray content_;
};
