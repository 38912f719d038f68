#include "platform/forms/FormAccess.h"

#include "platform/forms/FormFrame.h"
#include "tests/common/FormTest.h"

#include <QAccessible>
#include <QLabel>
#include <QListWidget>

namespace {

/// What screen readers are told of forms.
class FormAccessTest : public FormTest {
protected:
    static QAccessibleInterface& Access(QWidget& widget) {
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&widget);
        if (access == nullptr)
            throw std::runtime_error("not accessible");
        return *access;
    }
};

TEST_F(FormAccessTest, AFormIsAWindowOrAPaneOfTheFrameThatBearsItsTitle) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    Form& within = DefaultForm(QStringLiteral("Openfrm"));
    within.Show();
    within.SetCaption(QStringLiteral("Title [*]"));
    EXPECT_EQ(Access(within.Widget()).role(), QAccessible::Pane);
    EXPECT_EQ(Access(within.Frame()).role(), QAccessible::Window);
    EXPECT_EQ(Access(within.Frame()).text(QAccessible::Name), QStringLiteral("Title [*]"));
    EXPECT_EQ(Access(within.Frame()).text(QAccessible::Description), QString());
    Form& topLevel = DefaultForm(QStringLiteral("LogIn"));
    EXPECT_EQ(Access(topLevel.Widget()).role(), QAccessible::Window);
}

TEST_F(FormAccessTest, AFormHalfOutOfTheMainWindowIsStillToBeSeen) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    Form& form = DefaultForm(QStringLiteral("Openfrm"));
    form.Show();
    form.Frame().move(-40, 10);
    Settle();
    EXPECT_FALSE(Access(form.Frame()).state().offscreen);
    EXPECT_FALSE(Access(form.Frame()).state().invisible);
}

TEST_F(FormAccessTest, AListIsNamedByItsLabelUnlessItHasAName) {
    QWidget form;
    QListWidget named(&form);
    QListWidget other(&form);
    QLabel first(QStringLiteral("&Charts"), &form);
    QLabel second(QStringLiteral("&Others"), &form);
    first.setBuddy(&named);
    second.setBuddy(&other);
    other.setAccessibleName(QStringLiteral("Its own"));
    NameListsByLabels(form);
    EXPECT_EQ(named.accessibleName(), QStringLiteral("Charts"));
    EXPECT_EQ(other.accessibleName(), QStringLiteral("Its own"));
}

} // namespace
