#pragma once

#include "tests/tour/Text.h"

#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

class Album;

/// Reads the program's message boxes as a user does: each box that comes must be the next one
/// expected; its picture is taken and its button clicked. A box that nobody expects, and one that
/// does not come, fail the test.
class BoxReader {
public:
    explicit BoxReader(Album& album);

    /// The next box shows `text` and is answered by a click on `button`. `during` is what the
    /// user does elsewhere while the box stands. `picture`: name of its picture, "" for none.
    void Expect(const Text& text, QMessageBox::StandardButton button = QMessageBox::Ok,
                const Text& picture = {}, std::function<void()> during = {});

    /// The next box is answered by Ok whatever it tells: it has been read before.
    void ExpectAny(const Text& picture);

    /// Waits for the boxes that are still to come; fails the test if they do not.
    void WaitForAll();

private:
    struct Expected {
        std::optional<QString> text;
        QMessageBox::StandardButton button;
        QString picture;
        std::function<void()> during;
    };

    void Look();
    void Read(QMessageBox& box);
    void Answer(QMessageBox& box, QMessageBox::StandardButton button);

    Album& album_;
    QTimer timer_;
    QList<Expected> expected_;
    QPointer<QMessageBox> seen_;
    bool busy_ = false;
};
