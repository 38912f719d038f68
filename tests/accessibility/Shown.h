#pragma once

#include "tests/accessibility/Reader.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <memory>

/// The program that shows the forms, and a reader on it.
class Shown {
public:
    /// `program`: path of accessibility_forms. Throws std::runtime_error if it does not start.
    explicit Shown(const QString& program);
    ~Shown();

    /// Sends a command of accessibility_forms and returns its answer. Throws std::runtime_error
    /// if it fails or does not answer.
    QString Do(const QString& command);

    /// Shows a form in a fresh world; a message box for "MessageBox" and "QuestionBox".
    void Show(const QString& form);
    void Press(const QString& keys, int times = 1);
    /// Whether a button takes the key, which is not let go on it.
    bool Takes(const QString& key);
    void Look() { Do(QStringLiteral("look")); }
    int Changed(const QRect& onScreen);
    QStringList Told();

    /// The form's controls in sight; and those of all windows.
    Controls Read() const { return reader_->Read(title_); }
    Controls ReadAll() const { return reader_->ReadAll(); }

private:
    QProcess process_;
    std::unique_ptr<Reader> reader_;
    QString title_;
};
