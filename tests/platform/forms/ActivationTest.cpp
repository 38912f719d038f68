#include "platform/desktop/SystemPrompts.h"
#include "platform/forms/ActivationTracker.h"
#include "platform/forms/MainWindowArea.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QVBoxLayout>
#include <QtGui/qguiapplication_platform.h>
#include <cstdlib>
#include <string_view>
#include <xcb/xcb.h>

namespace {

QStringList Activations;

/// A main window as plain as can be.
class PlainMain : public QMainWindow, public Form {
public:
    PlainMain() : Form(*static_cast<QWidget*>(this), Place::TopLevel) {
        setCentralWidget(&area);
        SetMainWindowArea(&area);
        menu = menuBar()->addMenu(QStringLiteral("Menu"));
        menu->addAction(QStringLiteral("Entry"));
        resize(700, 500);
    }
    ~PlainMain() override { takeCentralWidget(); }
    QMdiArea area;
    QMenu* menu = nullptr;

protected:
    void Activate() override { Activations += QStringLiteral("main"); }
    void closeEvent(QCloseEvent* event) override { HandleClose(*event); }
};

class PlainForm : public FormWidget {
public:
    PlainForm(const QString& name, Place place) : FormWidget(place) {
        setObjectName(name);
        SetCaption(name);
        box.setParent(this);
        resize(200, 120);
    }
    QLineEdit box;
    bool refuses = false;
    int loads = 0;

protected:
    void Load() override { ++loads; }
    void Activate() override { Activations += objectName(); }
    bool QueryUnload() override { return !refuses; }
};

class ActivationTest : public FormTest {
protected:
    ActivationTest() {
        Activations.clear();
        main_->Show();
        EXPECT_TRUE(BecomesActive(*main_));
        Settle();
        EXPECT_EQ(Taken(), QStringList{QStringLiteral("main")});
    }
    ~ActivationTest() override {
        ActivationTracker::Instance().Reset();
        main_.reset();
    }

    /// Tells a window of the wish to make it active.
    static void TellActive(const QWidget& window) {
        auto* display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
        xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(
            display, xcb_intern_atom(display, 0, name.size(), name.data()), nullptr);
        ASSERT_NE(atom, nullptr);
        xcb_client_message_event_t wish = {};
        wish.response_type = XCB_CLIENT_MESSAGE;
        wish.format = 32;
        wish.window = static_cast<xcb_window_t>(window.winId());
        wish.type = atom->atom;
        std::free(atom);
        xcb_send_event(display, 0, wish.window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&wish));
        xcb_flush(display);
    }

    static QStringList Taken(Keyboard keyboard = Keyboard::InTheProgram) {
        Settle(keyboard);
        return std::exchange(Activations, {});
    }

    QPointer<PlainForm> Inside(const char* name) {
        auto* form = new PlainForm(QString::fromLatin1(name), Form::Place::InMainWindow);
        form->Show();
        EXPECT_EQ(Taken(), QStringList{QString::fromLatin1(name)});
        return form;
    }

    /// Starts a window of another process and waits until it has the focus.
    static void WithAnotherProgram(const std::function<void()>& meanwhile) {
        QProcess other;
        if (!StartAnotherProgram(other))
            GTEST_FAIL() << "the other program is not installed";
        EXPECT_TRUE(
            QTest::qWaitFor([] { return QApplication::activeWindow() == nullptr; }, Patience));
        meanwhile();
        other.kill();
        other.waitForFinished();
    }

    std::unique_ptr<PlainMain> main_ = std::make_unique<PlainMain>();
};

TEST_F(ActivationTest, AWindowThatClosesBeforeItHasTheFocusLeavesTheKeyboardWhereItWas) {
    QWidget other;
    other.show();
    ASSERT_TRUE(BecomesActive(other));
    main_->activateWindow();
    ASSERT_TRUE(BecomesActive(*main_));
    Settle();
    // As the toolkit hears its own wish before the window manager does.
    TellActive(other);
    ASSERT_TRUE(BecomesActive(other));
    Settle();
    other.close();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), QStringList()) << "nothing but the keyboard comes back";
}

TEST_F(ActivationTest, GoingFromOneFormToAnotherActivatesItEachTime) {
    const auto first = Inside("first");
    const auto second = Inside("second");
    first->SetFocus();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("first")});
    QTest::mouseClick(&second->box, Qt::LeftButton);
    second->SetFocus();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("second")});
}

TEST_F(ActivationTest, ShowingTheFormInFrontAgainDoesNotActivateIt) {
    const auto first = Inside("first");
    first->Show();
    EXPECT_EQ(Taken(), QStringList());
}

TEST_F(ActivationTest, AMessageBoxDoesNotActivateTheFormBehindIt) {
    const auto first = Inside("first");
    SystemPrompts prompts;
    const NextBox next([](QWidget& box) { box.close(); });
    Prompt prompt;
    prompt.Text = QStringLiteral("A message");
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::Ok);
    EXPECT_EQ(Taken(), QStringList());
}

TEST_F(ActivationTest, AMenuDoesNotActivateTheFormBehindIt) {
    const auto first = Inside("first");
    main_->menu->popup(main_->mapToGlobal(QPoint(20, 20)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(main_->menu, Patience));
    EXPECT_EQ(Taken(), QStringList());
    main_->menu->close();
    EXPECT_EQ(Taken(), QStringList());
}

TEST_F(ActivationTest, AnotherProgramDoesNotActivateTheFormOnReturn) {
    const auto first = Inside("first");
    WithAnotherProgram([] { EXPECT_EQ(Taken(Keyboard::InAnotherProgram), QStringList()); });
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), QStringList());
}

TEST_F(ActivationTest, MinimisingAndRestoringTheMainWindowActivatesNothing) {
    const auto first = Inside("first");
    main_->showMinimized();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !main_->isActiveWindow(); }, Patience));
    EXPECT_EQ(Taken(), QStringList());
    main_->showNormal();
    main_->activateWindow();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), QStringList());
}

TEST_F(ActivationTest, HidingTheMainWindowForAnotherFormActivatesMainAndFrontOnceOnReturn) {
    const auto first = Inside("first");
    const auto second = Inside("second");
    auto* logIn = new PlainForm(QStringLiteral("login"), Form::Place::TopLevel);
    main_->Hide();
    logIn->Show();
    EXPECT_TRUE(BecomesActive(*logIn));
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("login")});
    main_->Show();
    logIn->Unload();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), (QStringList{QStringLiteral("main"), QStringLiteral("second")}));
}

TEST_F(ActivationTest, UnloadingTheFrontFormActivatesTheOneBehindItOnce) {
    const auto first = Inside("first");
    const auto second = Inside("second");
    second->Unload();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("first")});
    EXPECT_TRUE(second.isNull());
}

TEST_F(ActivationTest, HidingTheFrontFormActivatesTheOneBehindItAndKeepsTheHiddenOne) {
    const auto first = Inside("first");
    const auto second = Inside("second");
    second->Hide();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("first")});
    ASSERT_FALSE(second.isNull());
    second->Show();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("second")});
    EXPECT_EQ(second->loads, 1);
}

TEST_F(ActivationTest, ClosingTheLastFormActivatesTheMainWindow) {
    const auto first = Inside("first");
    first->Unload();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("main")});
}

TEST_F(ActivationTest, AFormThatRefusesStaysInFrontWithoutAnActivation) {
    const auto first = Inside("first");
    first->refuses = true;
    first->Frame().close();
    EXPECT_EQ(Taken(), QStringList());
    ASSERT_FALSE(first.isNull());
    EXPECT_TRUE(first->isVisible());
    first->refuses = false;
    first->Frame().close();
    Settle();
    EXPECT_TRUE(first.isNull());
}

TEST_F(ActivationTest, ATopLevelFormOverTheMainWindowAndBackActivatesBoth) {
    const auto first = Inside("first");
    auto* over = new PlainForm(QStringLiteral("over"), Form::Place::TopLevel);
    over->Show();
    EXPECT_TRUE(BecomesActive(*over));
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("over")});
    over->Unload();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), (QStringList{QStringLiteral("main"), QStringLiteral("first")}));
}

TEST_F(ActivationTest, ShowingAFormThatStandsBehindBringsItToTheFront) {
    const auto first = Inside("first");
    const auto second = Inside("second");
    first->Show();
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("first")});
    EXPECT_EQ(main_->area.activeSubWindow(), &first->Frame());
    PlainForm over(QStringLiteral("over"), Form::Place::TopLevel);
    over.Show();
    EXPECT_TRUE(BecomesActive(over));
    EXPECT_EQ(Taken(), QStringList{QStringLiteral("over")});
    main_->Show();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), (QStringList{QStringLiteral("main"), QStringLiteral("first")}));
}

/// A new form in a size of its own.
std::unique_ptr<PlainForm> Sized(Form::Place place) {
    return std::make_unique<PlainForm>(QStringLiteral("sized"), place);
}

/// A new form whose layout tells its size.
std::unique_ptr<PlainForm> LaidOut(Form::Place place) {
    auto form = std::make_unique<PlainForm>(QStringLiteral("laid out"), place);
    form->setAttribute(Qt::WA_Resized, false);
    form->box.setFixedSize(300, 40);
    (new QVBoxLayout(form.get()))->addWidget(&form->box);
    return form;
}

TEST_F(ActivationTest, ANewTopLevelFormComesInItsSizeInTheMiddleOfTheScreen) {
    const QRect screen = main_->screen()->availableGeometry();
    for (const auto& make : {Sized, LaidOut}) {
        const auto form = make(Form::Place::TopLevel);
        const QSize size = make == Sized ? QSize(200, 120) : form->sizeHint();
        form->Show();
        EXPECT_EQ(form->size(), size);
        EXPECT_EQ(form->pos(), screen.center() - QRect(QPoint(), size).center());
        ActivationTracker::Instance().Reset();
    }
}

TEST_F(ActivationTest, ATopLevelFormThatHasBeenMovedStaysThere) {
    PlainForm form(QStringLiteral("moved"), Form::Place::TopLevel);
    form.move(40, 50);
    form.Show();
    EXPECT_EQ(form.pos(), QPoint(40, 50));
    ActivationTracker::Instance().Reset();
}

TEST_F(ActivationTest, ANewFormWithinKeepsItsSizeOrTakesWhatItsLayoutAsksFor) {
    for (const auto& make : {Sized, LaidOut}) {
        PlainForm* form = make(Form::Place::InMainWindow).release();
        const QSize size = make == Sized ? QSize(200, 120) : form->sizeHint();
        form->Show();
        EXPECT_EQ(form->size(), size);
        form->Unload();
        Settle();
    }
}

TEST_F(ActivationTest, FormsWithinComeAStepFurtherEachWhileTheyFit) {
    // Lower than it is wide, and narrower than it is high.
    for (const QSize& size : {QSize(700, 500), QSize(420, 700)}) {
        SizeWindow(*main_, size);
        const QSize room = main_->area.viewport()->size();
        QList<QPoint> places;
        QList<PlainForm*> forms;
        for (int made = 0; made < 14; ++made) {
            forms += new PlainForm(QString::number(made), Form::Place::InMainWindow);
            Form& form = *forms.last();
            form.Show();
            places += form.Frame().pos();
            const QSize free = room - form.Frame().size();
            if (made == 0) {
                EXPECT_EQ(places.last(), QPoint(free.width() / 2, free.height() / 3));
                continue;
            }
            const QPoint further = places.at(made - 1) + QPoint(24, 24);
            const bool fits = further.x() <= free.width() && further.y() <= free.height();
            EXPECT_EQ(places.last(), fits ? further : places.at(made - 1)) << made;
        }
        EXPECT_EQ(places.at(13), places.at(12)) << "the last ones no longer fit";
        for (PlainForm* form : forms)
            form->Unload();
        Settle();
    }
}

class DefaultFormsTest : public FormTest {};

TEST_F(DefaultFormsTest, NamingMakesLoadsAndHidesOnceAndAnewAfterAnUnload) {
    int made = 0;
    RegisterForm(QStringLiteral("plain"), [&made]() -> Form* {
        ++made;
        return new PlainForm(QStringLiteral("plain"), Form::Place::TopLevel);
    });
    EXPECT_EQ(ExistingForm(QStringLiteral("plain")), nullptr);
    Form& first = DefaultForm(QStringLiteral("plain"));
    EXPECT_FALSE(first.Widget().isVisible());
    EXPECT_EQ(dynamic_cast<PlainForm&>(first).loads, 1);
    EXPECT_EQ(&DefaultForm(QStringLiteral("plain")), &first);
    EXPECT_TRUE(first.Unload());
    EXPECT_EQ(ExistingForm(QStringLiteral("plain")), nullptr);
    DefaultForm(QStringLiteral("plain"));
    EXPECT_EQ(made, 2);
}

TEST_F(DefaultFormsTest, AWindowThatRefusesToCloseStays) {
    PlainForm form(QStringLiteral("plain"), Form::Place::TopLevel);
    form.Show();
    form.refuses = true;
    form.close();
    EXPECT_TRUE(form.isVisible());
    form.refuses = false;
    form.close();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(DefaultFormsTest, AFormThatHasEndedEndsAgainWithoutAsking) {
    PlainForm form(QStringLiteral("plain"), Form::Place::TopLevel);
    EXPECT_TRUE(form.Unload());
    form.refuses = true;
    EXPECT_TRUE(form.Unload());
}

TEST_F(DefaultFormsTest, AnUnknownNameRaisesObjectNotSet) {
    EXPECT_ERROR(91, DefaultForm(QStringLiteral("no such form")));
}

} // namespace
