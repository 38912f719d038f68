#include "platform/forms/ControlArray.h"
#include "tests/common/FormTest.h"

#include <QLineEdit>

namespace {

class ControlArrayTest : public FormTest {
protected:
    ControlArrayTest() {
        boxes.Design(QStringLiteral("Points"), new QLineEdit(&frame), {9480, 650, 1335, 330},
                     [this] { return new QLineEdit(&frame); });
    }
    QWidget frame;
    ControlArray<QLineEdit> boxes;
};

TEST_F(ControlArrayTest, LoadedElementsAreHiddenNamedByIndexAndPlacedLikeTheDesigned) {
    boxes.LoadElement();
    EXPECT_EQ(boxes.Count(), 2);
    EXPECT_EQ(boxes[1].objectName(), QStringLiteral("Points(1)"));
    EXPECT_FALSE(boxes.Visible(1));
    EXPECT_EQ(boxes.Left(1), 9480);
    EXPECT_EQ(boxes[1].geometry(), QRect(632, 43, 89, 22));
}

TEST_F(ControlArrayTest, TopReadsBackAsWrittenWhateverThePixels) {
    boxes.SetTop(0, 1037);
    EXPECT_EQ(boxes.Top(0), 1037);
    EXPECT_EQ(boxes[0].y(), 69);
    boxes.SetTop(0, -23);
    EXPECT_EQ(boxes.Top(0), -23);
}

TEST_F(ControlArrayTest, VisibleIsTheControlsOwnFlagOnAHiddenForm) {
    boxes.SetVisible(0, true);
    EXPECT_FALSE(frame.isVisible());
    EXPECT_TRUE(boxes.Visible(0));
    boxes.SetVisible(0, false);
    EXPECT_FALSE(boxes.Visible(0));
}

TEST_F(ControlArrayTest, IndexesOutsideRaiseAndTheDesignedElementStays) {
    EXPECT_ERROR(9, boxes[1]);
    EXPECT_ERROR(9, boxes[-1]);
    EXPECT_ERROR(9, boxes.UnloadLast());
    boxes.LoadElement();
    boxes.UnloadLast();
    EXPECT_EQ(boxes.Count(), 1);
    EXPECT_EQ(frame.findChild<QLineEdit*>(QStringLiteral("Points(1)")), nullptr);
}

TEST_F(ControlArrayTest, APromisedElementCountsAndItsControlIsMadeWhenItIsAskedFor) {
    QList<int> asked;
    boxes.KeepPromisesBy([&](int index) {
        asked += index;
        boxes.MakeElement(index);
    });
    boxes.PromiseElement();
    boxes.PromiseElement();
    EXPECT_EQ(boxes.Count(), 3);
    EXPECT_EQ(boxes.Top(2), 650);
    EXPECT_FALSE(boxes.Visible(2));
    boxes.SetVisible(2, true);
    boxes.SetTop(2, 1037);
    EXPECT_TRUE(boxes.Visible(2));
    EXPECT_EQ(frame.findChildren<QLineEdit*>().size(), 1);
    EXPECT_EQ(asked, QList<int>());

    EXPECT_EQ(boxes[2].objectName(), QStringLiteral("Points(2)"));
    EXPECT_EQ(asked, QList<int>{2});
    EXPECT_EQ(boxes[2].geometry(), QRect(632, 69, 89, 22));
    EXPECT_TRUE(boxes.Visible(2));
    EXPECT_EQ(asked, QList<int>{2}) << "made once";
    EXPECT_EQ(frame.findChildren<QLineEdit*>().size(), 2);
    EXPECT_TRUE(boxes[1].isHidden());
}

TEST_F(ControlArrayTest, APromisedElementIsUnloadedWithoutBeingMade) {
    boxes.KeepPromisesBy([](int) { FAIL(); });
    boxes.PromiseElement();
    boxes.UnloadLast();
    EXPECT_EQ(boxes.Count(), 1);
    EXPECT_ERROR(9, boxes[1]);
    EXPECT_EQ(frame.findChildren<QLineEdit*>().size(), 1);
}

TEST_F(ControlArrayTest, KeptElementsComeBackRenewedForTheirIndexNamedAndPlacedAnew) {
    QWidget kept;
    ControlArray<QLineEdit> texts;
    const auto make = [&] { return new QLineEdit(&kept); };
    texts.Design(QStringLiteral("Text"), make(), {150, 300, 1500, 330}, make,
                 [](QLineEdit& text) { text.clear(); });
    texts.LoadElement();
    texts.LoadElement();
    const QLineEdit* first = &texts[1];
    const QLineEdit* second = &texts[2];
    texts[1].setText(QStringLiteral("old"));
    texts.SetTop(1, 4500);
    texts.SetVisible(1, true);
    texts.UnloadLast();
    texts.UnloadLast();
    EXPECT_EQ(kept.findChild<QLineEdit*>(QStringLiteral("Text(1)")), nullptr);
    EXPECT_TRUE(first->isHidden());

    texts.LoadElement();
    texts.LoadElement();
    EXPECT_EQ(&texts[1], first);
    EXPECT_EQ(&texts[2], second);
    EXPECT_EQ(texts[1].text(), QString());
    EXPECT_FALSE(texts.Visible(1));
    EXPECT_EQ(texts.Top(1), 300);
    EXPECT_EQ(texts[1].y(), 20);
    EXPECT_EQ(texts[1].objectName(), QStringLiteral("Text(1)"));
}

} // namespace
