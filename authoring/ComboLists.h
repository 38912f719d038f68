#pragma once

#include <QComboBox>
#include <QSignalBlocker>
#include <QString>

/// Lets the list of an editable combo box be changed without touching the text in its box, which
/// the toolkit would otherwise replace by an entry. No entry counts as chosen afterwards.
class KeptText {
public:
    explicit KeptText(QComboBox& combo)
        : combo_(combo), text_(combo.currentText()), silence_(&combo) {}
    ~KeptText() {
        combo_.setCurrentIndex(-1);
        // To lay out a text takes its time, and an editor has hundreds of boxes.
        if (combo_.currentText() != text_)
            combo_.setEditText(text_);
    }
    KeptText(const KeptText&) = delete;
    KeptText& operator=(const KeptText&) = delete;

    const QString& Text() const { return text_; }

private:
    QComboBox& combo_;
    QString text_;
    QSignalBlocker silence_;
};
