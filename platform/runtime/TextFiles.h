#pragma once

#include <QByteArray>
#include <QString>

/// A text file read by the formatted input statement. UTF-8; lines end in CR LF, CR or LF.
class InputFile {
public:
    /// Raises 53 if the file is not there, 75 if it cannot be read whole, 76 if its folder is
    /// missing.
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

/// A text file written anew, line by line. What was there stays until Close has written all.
class OutputFile {
public:
    /// Raises 76 if the folder is missing, 75 if the file is protected, a link or no regular file.
    explicit OutputFile(const QString& path);

    /// A text as it stands, then the line's end.
    void PrintText(const QString& text);

    /// A number with a blank or a minus sign before it and a blank behind, then the line's end.
    void PrintNumber(qint64 number);

    /// Puts the new file in the place of the old one. Raises 75 if the disk refuses it.
    void Close();

private:
    QString path_;
    QByteArray content_;
};
