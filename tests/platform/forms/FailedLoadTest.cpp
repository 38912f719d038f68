#include "platform/runtime/Actions.h"
#include "tests/common/FormTest.h"

#include <QMdiArea>

namespace {

/// Whether the next load fails, and how many forms have been made and loaded to the end.
struct {
    bool fails = false;
    int made = 0;
    int loaded = 0;
    int unloaded = 0;
} Fate;

class FailingForm : public FormWidget {
public:
    static inline const QString FormName = QStringLiteral("FailingForm");

    FailingForm() : FormWidget(Place::InMainWindow) { ++Fate.made; }

protected:
    void Load() override {
        if (Fate.fails)
            throw RuntimeError(ErrorNumber::NoCurrentRecord);
        ++Fate.loaded;
    }
    void Unloaded() override { ++Fate.unloaded; }
};

class FailedLoadTest : public FormTest {
protected:
    FailedLoadTest() {
        Fate = {};
        RegisterFormClass<FailingForm>();
        StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    }

    void OpenAndFail() {
        Fate.fails = true;
        Boxes.ExpectError(ErrorNumber::NoCurrentRecord);
        RunAction([] { DefaultForm(FailingForm::FormName).Show(); });
        Boxes.VerifyAllShown();
        Fate.fails = false;
    }

    static int Frames() {
        const QWidget& window = DefaultForm(QStringLiteral("MainForm")).Widget();
        return static_cast<int>(
            Find<QMdiArea>(window, QStringLiteral("Area")).subWindowList().size());
    }
};

TEST_F(FailedLoadTest, AFormWhoseLoadRaisedIsDropped) {
    OpenAndFail();
    EXPECT_EQ(ExistingForm(FailingForm::FormName), nullptr);
    EXPECT_EQ(Fate.unloaded, 1);
    EXPECT_EQ(Frames(), 0);
}

TEST_F(FailedLoadTest, ItIsLoadedAfreshWhenItIsNamedAgain) {
    OpenAndFail();
    OpenAndFail();
    RunAction([] { DefaultForm(FailingForm::FormName).Show(); });
    Settle();
    EXPECT_EQ(Fate.made, 3);
    EXPECT_EQ(Fate.loaded, 1);
    Form* form = ExistingForm(FailingForm::FormName);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->Widget().isVisible());
    EXPECT_EQ(Frames(), 1);
}

TEST_F(FailedLoadTest, AFormThatIsNoDefaultInstanceIsDroppedAndDeletedAsWell) {
    const QPointer<FailingForm> form = new FailingForm;
    Fate.fails = true;
    EXPECT_ERROR(3021, form->Show());
    ASSERT_FALSE(form.isNull()) << "its caller may still hold it";
    EXPECT_TRUE(form->IsUnloaded());
    form->Show();
    EXPECT_FALSE(form->isVisible());
    Settle();
    EXPECT_TRUE(form.isNull());
}

} // namespace
