#include "widgets/ElidingEdit.h"

#include "tests/common/FormTest.h"

#include <QKeyEvent>
#include <QTest>

namespace {

/// What is around the box: keys that the box does not use come to it.
class Around : public QWidget {
public:
    QList<int> Keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { Keys += event->key(); }
};

class ElidingEditTest : public FormTest {};

TEST_F(ElidingEditTest, KeysThatItUsesGoNoFurther) {
    Around around;
    ElidingEdit edit(&around);
    around.show();
    QTest::keyClicks(&edit, QStringLiteral("Zoe"));
    QTest::keyClick(&edit, Qt::Key_Left);
    EXPECT_EQ(edit.text(), QStringLiteral("Zoe"));
    EXPECT_EQ(around.Keys, QList<int>());
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_EQ(around.Keys, QList<int>{Qt::Key_Escape});
}

} // namespace
