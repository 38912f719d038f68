#include "widgets/PersonRows.h"

#include "look/LookColors.h"
#include "platform/runtime/RuntimeError.h"
#include "tests/common/FormTest.h"
#include "widgets/ClickList.h"

#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A list of 200 people in blue, one of whom has no picture and one a picture that cannot be read.
class PersonRowsTest : public FormTest {
protected:
    PersonRowsTest() {
        list_.resize(240, 220);
        Fill();
        new PersonRows(list_, [this](const QString& name, PictureTarget& target) {
            EXPECT_GT(paints_, 0) << "names come first";
            fetched_ += name;
            if (name == u"Person 1"_s)
                return;
            if (name == u"Person 2"_s)
                throw RuntimeError(ErrorNumber::InvalidPicture);
            QImage picture(64, 48, QImage::Format_RGB32);
            picture.fill(color_);
            target.SetPicture(picture);
        });
        list_.viewport()->installEventFilter(&counter_);
        counter_.Paints = &paints_;
    }

    void Fill() {
        list_.clear();
        for (int number = 0; number < 200; ++number)
            list_.addItem(u"Person %1"_s.arg(number));
    }

    void Show() {
        list_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_, Patience));
        WaitForPictures();
    }

    /// Until no more are asked for.
    void WaitForPictures() {
        // Each that has come is painted.
        const auto noMoreCome = [this] {
            const int former = paints_;
            Settle();
            return paints_ == former;
        };
        EXPECT_TRUE(QTest::qWaitFor(noMoreCome, Patience));
    }

    /// The numbers of those fetched, from the first to the last.
    QList<int> Fetched() {
        QList<int> numbers;
        for (const QString& name : std::exchange(fetched_, {}))
            numbers += name.mid(7).toInt();
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }

    QRect Row(int row) { return list_.visualItemRect(list_.item(row)); }
    QColor Disc(int row) {
        const QPointF middle(Row(row).left() + 25, Row(row).center().y());
        const QImage seen = list_.viewport()->grab().toImage();
        return seen.pixelColor((middle * seen.devicePixelRatio()).toPoint());
    }

    static QList<int> Range(int first, int last) {
        QList<int> numbers;
        for (int number = first; number <= last; ++number)
            numbers += number;
        return numbers;
    }

    class PaintsOfViewport : public QObject {
    public:
        int* Paints = nullptr;
        bool eventFilter(QObject*, QEvent* event) override {
            *Paints += event->type() == QEvent::Paint;
            return false;
        }
    };

    QStringList fetched_;
    QColor color_ = Qt::blue;
    int paints_ = 0;
    PaintsOfViewport counter_;
    ClickList list_;
};

TEST_F(PersonRowsTest, OnlyThePicturesInSightAreFetchedEachOnce) {
    Show();
    // Of the last one the upper part is seen.
    const int last = (list_.viewport()->height() - 1) / 40;
    EXPECT_EQ(last, 5);
    EXPECT_EQ(Fetched(), Range(0, last));
    list_.verticalScrollBar()->setValue(list_.verticalScrollBar()->maximum());
    WaitForPictures();
    const int first = list_.indexAt(QPoint(1, 1)).row();
    EXPECT_GE(first, 199 - last);
    EXPECT_EQ(Fetched(), Range(first, 199)) << "none that was passed over";
    list_.verticalScrollBar()->setValue(0);
    WaitForPictures();
    EXPECT_EQ(Fetched(), QList<int>());
}

TEST_F(PersonRowsTest, RowsAreHighAndShowTheirPicturesAsDiscs) {
    Show();
    EXPECT_EQ(Row(0).height(), 40);
    EXPECT_EQ(Disc(0), QColor(Qt::blue));
    EXPECT_EQ(Disc(3), QColor(Qt::blue));
    EXPECT_EQ(Disc(1), LookColors::Line) << "the head of nobody";
    EXPECT_EQ(Disc(2), LookColors::Line);
}

TEST_F(PersonRowsTest, AListFilledAnewShowsItsPicturesUntilTheyAreFetchedAgain) {
    Show();
    Fetched();
    color_ = Qt::red;
    Fill();
    EXPECT_EQ(Disc(0), QColor(Qt::blue)) << "no flicker";
    WaitForPictures();
    EXPECT_EQ(Fetched(), Range(0, 5));
    EXPECT_EQ(Disc(0), QColor(Qt::red));
}

} // namespace
