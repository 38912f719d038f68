#include "tests/tour/BoxReader.h"

#include "tests/common/Readable.h"
#include "tests/common/TestRun.h"
#include "tests/tour/Album.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

constexpr int LookEvery = 15; // milliseconds

QMessageBox* BoxOnScreen() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(window);
        if (box != nullptr && box->isVisible() && box->windowHandle()->isExposed())
            return box;
    }
    return nullptr;
}

} // namespace

BoxReader::BoxReader(Album& album) : album_(album) {
    timer_.setInterval(LookEvery);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start();
}

void BoxReader::Expect(const Text& text, QMessageBox::StandardButton button, const Text& picture,
                       std::function<void()> during) {
    expected_.append({text, button, picture, std::move(during)});
}

void BoxReader::ExpectAny(const Text& picture) {
    expected_.append({std::nullopt, QMessageBox::Ok, picture, {}});
}

void BoxReader::WaitForAll() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return expected_.isEmpty() && !busy_; }, Patience));
    for (const Expected& left : expected_)
        ADD_FAILURE() << "A box did not come: " << left.text.value_or(left.picture).toStdString();
    expected_.clear();
}

void BoxReader::Look() {
    QMessageBox* box = BoxOnScreen();
    // One look later than the first, so that the box has been painted.
    const bool settled = box != nullptr && seen_ == box;
    seen_ = box;
    if (!settled || busy_)
        return;
    busy_ = true;
    Read(*box);
    busy_ = false;
    seen_ = nullptr;
}

void BoxReader::Read(QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Sparkit Dutygrid"));
    if (expected_.isEmpty()) {
        ADD_FAILURE() << "Unexpected box: " << box.text().toStdString();
        album_.Take(box, QStringLiteral("unexpected-box"));
        Answer(box, box.button(QMessageBox::No) != nullptr ? QMessageBox::No : QMessageBox::Ok);
        return;
    }
    const Expected next = expected_.takeFirst();
    EXPECT_EQ(box.text(), next.text.value_or(box.text()));
    if (!next.picture.isEmpty())
        album_.Take(box, next.picture);
    const QPointer<QMessageBox> standing = &box;
    if (next.during) {
        // Nothing may be thrown through the event loop that the box stands in.
        try {
            next.during();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }
    if (!standing.isNull())
        Answer(box, next.button);
}

void BoxReader::Answer(QMessageBox& box, QMessageBox::StandardButton button) {
    QAbstractButton* clicked = box.button(button);
    if (clicked == nullptr) {
        ADD_FAILURE() << "no such button on: " << box.text().toStdString();
        box.reject();
        return;
    }
    QTest::mouseClick(clicked, Qt::LeftButton);
}
