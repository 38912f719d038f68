#include "platform/desktop/SystemPrompts.h"
#include "platform/forms/ActivationTracker.h"
#include "platform/forms/MainWindowArea.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"
#include "tests/common/QuickEnough.h"
#include "tests/common/RealInput.h"
#include "tests/common/SlowEyes.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;
using S = QStringList;

/// In milliseconds, from a form's activation to a press that may be meant for what it shows, and
/// to one that cannot be.
constexpr int TimeToSee = 250;
constexpr int TooSoonToSee = 200;

/// What happened, in order: activations and presses.
S Events;

/// Fills its parent and tells of each press on it.
class Pad : public QWidget {
public:
    Pad(const QString& name, QWidget* parent) : QWidget(parent) {
        setObjectName(name);
        setFocusPolicy(Qt::StrongFocus);
        setGeometry(0, 0, 200, 120);
    }

    /// By the clock of the window system's events, in milliseconds.
    quint64 PressedAt = 0;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        PressedAt = event->timestamp();
        Tell(QStringLiteral("press "));
    }
    void mouseDoubleClickEvent(QMouseEvent*) override { Tell(QStringLiteral("double ")); }
    void mouseReleaseEvent(QMouseEvent*) override { Tell(QStringLiteral("release ")); }

private:
    void Tell(const QString& what) {
        const bool isNew = ActivationTracker::Instance().IsPressOnNewFront();
        Events +=
            what + objectName() +
            (isNew && !what.startsWith(QLatin1Char('r')) ? QStringLiteral(", unseen") : QString());
    }
};

class MainWithPad : public QMainWindow, public Form {
public:
    MainWithPad() : Form(*static_cast<QWidget*>(this), Place::TopLevel) {
        setCentralWidget(&area);
        SetMainWindowArea(&area);
        resize(700, 500);
        move(20, 40);
    }
    ~MainWithPad() override { takeCentralWidget(); }
    QMdiArea area;

protected:
    void Activate() override { Events += QStringLiteral("main"); }
    void closeEvent(QCloseEvent* event) override { HandleClose(*event); }
};

class PadForm : public FormWidget {
public:
    PadForm(const QString& name, Place place) : FormWidget(place) {
        setObjectName(name);
        SetCaption(name);
        pad = new Pad(name, this);
        resize(200, 120);
    }
    QPointer<Pad> pad;
    std::function<void()> onActivate;

protected:
    void Activate() override {
        Events += objectName();
        if (onActivate)
            onActivate();
    }
};

class PressDesk : public FormTest {
protected:
    PressDesk() {
        main_->Show();
        EXPECT_TRUE(BecomesActive(*main_));
        Settle();
        Events.clear();
    }
    ~PressDesk() override {
        ActivationTracker::Instance().Reset();
        topLevels_.clear();
        main_.reset();
    }

    static S Taken() {
        Settle();
        return std::exchange(Events, {});
    }

    /// `place`: pixels within the main window.
    PadForm& Inside(const char* name, const QPoint& place) {
        auto* form = new PadForm(QString::fromLatin1(name), Form::Place::InMainWindow);
        form->Show();
        form->Frame().move(place);
        EXPECT_EQ(Taken(), S{QString::fromLatin1(name)});
        return *form;
    }

    /// `place`: pixels on the screen.
    PadForm& TopLevel(const char* name, const QPoint& place) {
        topLevels_.push_back(
            std::make_unique<PadForm>(QString::fromLatin1(name), Form::Place::TopLevel));
        PadForm& form = *topLevels_.back();
        form.move(place);
        form.Show();
        EXPECT_TRUE(BecomesActive(form));
        EXPECT_EQ(Taken(), S{QString::fromLatin1(name)});
        return form;
    }

    bool IsInFront(const Form& form) const {
        return main_->area.activeSubWindow() == &form.Frame();
    }

    std::unique_ptr<MainWithPad> main_ = std::make_unique<MainWithPad>();

private:
    std::vector<std::unique_ptr<PadForm>> topLevels_;
};

class PressTest : public PressDesk, public testing::WithParamInterface<RealPress> {
protected:
    void Press(const QWidget& widget) { hand_.Click(widget, GetParam()); }

private:
    RealInput hand_;
};

TEST_P(PressTest, AFormWithinIsActivatedOnceBeforeThePress) {
    PadForm& first = Inside("first", {10, 10});
    PadForm& second = Inside("second", {300, 10});
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"first"_s, u"press first, unseen"_s, u"release first"_s}));
    EXPECT_TRUE(IsInFront(first));
    EXPECT_TRUE(first.pad->hasFocus());
    Press(*second.pad);
    EXPECT_EQ(Taken(), (S{u"second"_s, u"press second, unseen"_s, u"release second"_s}));
}

TEST_P(PressTest, ATopLevelFormIsActivatedOnceBeforeThePress) {
    const SlowEyes eyes;
    PadForm& first = TopLevel("first", {800, 60});
    TopLevel("second", {800, 300});
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"first"_s, u"press first, unseen"_s, u"release first"_s}));
    EXPECT_TRUE(BecomesActive(first));
}

TEST_P(PressTest, AFormWithinAMainWindowBehindIsActivatedAfterItAndTheOneInFrontThereIsNot) {
    const SlowEyes eyes;
    PadForm& first = Inside("first", {10, 10});
    PadForm& second = Inside("second", {300, 10});
    PadForm& over = TopLevel("over", {800, 60});
    const S expected{u"main"_s, u"first"_s, u"press first, unseen"_s, u"release first"_s};
    S taken;
    // On a busy machine the focus may come so long before the press that the one in front is back.
    UntilQuickEnough([&] {
        second.SetFocus();
        over.SetFocus();
        Taken();
        Press(*first.pad);
        taken = Taken();
        return taken == expected;
    });
    EXPECT_EQ(taken, expected);
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_TRUE(IsInFront(first));
    EXPECT_TRUE(first.pad->hasFocus());
}

TEST_P(PressTest, ThePressGoesToWhatTheActivationHasPutInThePlaceOfItsControl) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    first.onActivate = [&first] {
        first.pad->hide();
        first.pad->deleteLater();
        first.pad = new Pad(u"new"_s, &first);
        first.pad->show();
    };
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"first"_s, u"press new, unseen"_s, u"release new"_s}));
}

TEST_P(PressTest, AFormThatItsActivationEndsLeavesThePressToTheOneBeneath) {
    PadForm& beneath = Inside("beneath", {10, 10});
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    first.onActivate = [&first] { first.Unload(); };
    Press(*first.pad);
    EXPECT_EQ(Taken(),
              (S{u"first"_s, u"beneath"_s, u"press beneath, unseen"_s, u"release beneath"_s}));
    EXPECT_TRUE(IsInFront(beneath));
}

TEST_P(PressTest, ABoxThatTheActivationShowsTakesThePress) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    first.onActivate = [] {
        SystemPrompts prompts;
        const NextBox next([](QWidget& box) {
            const auto isReleased = [] { return QGuiApplication::mouseButtons() == Qt::NoButton; };
            EXPECT_TRUE(QTest::qWaitFor(isReleased, Patience));
            box.close();
        });
        Prompt prompt;
        prompt.Text = u"A message"_s;
        prompts.Show(prompt);
    };
    RealInput::SendClick(*first.pad, GetParam());
    EXPECT_TRUE(QTest::qWaitFor([] { return Events.contains(u"first"_s); }, Patience));
    EXPECT_TRUE(
        QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, Patience));
    EXPECT_EQ(Taken(), S{u"first"_s});
    QTest::qWait(TimeToSee);
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"press first"_s, u"release first"_s}));
}

TEST_P(PressTest, BehindABoxNothingIsActivated) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    QMessageBox box(main_.get());
    box.show();
    EXPECT_TRUE(BecomesActive(box));
    box.move(800, 500);
    EXPECT_TRUE(QTest::qWaitFor([&box] { return box.mapToGlobal(QPoint()).x() >= 800; }, Patience));
    Settle();
    RealInput::SendClick(*first.pad, GetParam());
    EXPECT_EQ(Taken(), S());
    box.close();
    EXPECT_EQ(Taken(), S());
}

TEST_P(PressTest, AWindowThatIsNoFormAndTheWayBackFromItActivateNothing) {
    PadForm& first = Inside("first", {10, 10});
    Pad help(u"help"_s, nullptr);
    help.move(900, 300);
    help.show();
    EXPECT_TRUE(BecomesActive(help));
    main_->activateWindow();
    EXPECT_TRUE(BecomesActive(*main_));
    EXPECT_EQ(Taken(), S());
    QTest::qWait(TimeToSee);
    Press(help);
    EXPECT_EQ(Taken(), (S{u"press help"_s, u"release help"_s}));
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"press first"_s, u"release first"_s}));
}

INSTANTIATE_TEST_SUITE_P(RealInput, PressTest,
                         testing::Values(RealInput::Short, RealInput::Long,
                                         RealInput::ShortWhileBusy, RealInput::LongWhileBusy));

class DoublePressTest : public PressTest {};

TEST_P(DoublePressTest, BothPressesOfADoubleClickAreOnWhatNobodyHasSeen) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    Press(*first.pad);
    EXPECT_EQ(Taken(), (S{u"first"_s, u"press first, unseen"_s, u"release first"_s,
                          u"double first, unseen"_s, u"release first"_s}));
}

INSTANTIATE_TEST_SUITE_P(RealInput, DoublePressTest, testing::Values(RealInput::Double));

class PendingLookTest : public PressDesk {
protected:
    /// A press that no event of the loop comes before.
    static void PressAtOnce(const PadForm& form) {
        const S atOnce{form.objectName(), u"press "_s + form.objectName() + u", unseen"_s};
        EXPECT_EQ(PressOn(form), atOnce);
    }

    /// A press at this moment of the window system's clock, in milliseconds.
    static S PressOn(const PadForm& form, quint64 moment) {
        QWidget& window = *form.window();
        const QPointF place = form.pad->mapTo(&window, form.pad->rect().center());
        const auto send = [&](QEvent::Type type, Qt::MouseButtons held) {
            QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, held, {});
            event.setTimestamp(moment);
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        const S events = std::exchange(Events, {});
        send(QEvent::MouseButtonRelease, Qt::NoButton);
        Events.clear();
        return events;
    }

    static S PressOn(const PadForm& form) {
        QWidget& window = *form.window();
        const QPoint place = form.pad->mapTo(&window, form.pad->rect().center());
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);
        const S events = Events;
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
        return events;
    }
};

TEST_F(PendingLookTest, APressCompletesAnActivationThatIsDue) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    first.SetFocus();
    PressAtOnce(first);
    EXPECT_EQ(Taken().count(u"first"_s), 1);
}

TEST_F(PendingLookTest, TheFormLeftIsNotActivatedWhileTheWindowSystemStillNamesIt) {
    PadForm& first = TopLevel("first", {800, 60});
    TopLevel("second", {800, 300});
    ActivationTracker::Instance().Schedule();
    PressAtOnce(first);
    const S events = Taken();
    EXPECT_EQ(events.count(u"first"_s), 1);
    EXPECT_EQ(events.count(u"second"_s), 0);
}

TEST_F(PendingLookTest, APressJustAfterTheFocusIsOnWhatNobodyHasSeen) {
    PadForm& first = Inside("first", {10, 10});
    PadForm& second = Inside("second", {300, 10});
    QElapsedTimer sinceActivation;
    first.onActivate = [&sinceActivation] { sinceActivation.start(); };
    UntilQuickEnough([&] {
        second.SetFocus();
        Taken();
        first.SetFocus();
        EXPECT_TRUE(QTest::qWaitFor([] { return Events.contains(u"first"_s); }, Patience));
        Events.clear();
        const S pressed = PressOn(first);
        const bool isTooSoon = sinceActivation.elapsed() < TooSoonToSee;
        EXPECT_TRUE(!isTooSoon || pressed == S{u"press first, unseen"_s});
        return isTooSoon;
    });
}

TEST_F(PendingLookTest, ASecondPressWithinADoubleClickOfAnUnseenOneIsUnseenToo) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    const auto interval =
        static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    PressAtOnce(first);
    Taken();
    const quint64 moment = first.pad->PressedAt;
    QTest::qWait(TimeToSee);
    EXPECT_EQ(PressOn(first, moment + interval - 1), S{u"press first, unseen"_s});
    EXPECT_EQ(PressOn(first, moment + interval), S{u"press first"_s});
    // Else the next press of all would be the second one of a double click.
    QTest::lastMouseTimestamp += 2 * static_cast<int>(interval);
}

TEST_F(PendingLookTest, APressThatLeavesTimeToSeeIsTakenAsMeant) {
    PadForm& first = Inside("first", {10, 10});
    Inside("second", {300, 10});
    first.SetFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return Events.contains(u"first"_s); }, Patience));
    QTest::qWait(TimeToSee);
    Events.clear();
    EXPECT_EQ(PressOn(first), S{u"press first"_s});
}

} // namespace
