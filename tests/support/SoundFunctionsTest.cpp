#include "support/SoundFunctions.h"

#include "platform/runtime/Desktop.h"
#include "tests/common/RuntimeTest.h"

#include <utility>

namespace {

class SoundFunctionsTest : public RuntimeTest {
protected:
    SoundFunctionsTest() {
        SetSoundSwitch([this] { return mark; });
    }
    ~SoundFunctionsTest() override {
        SetSoundSwitch({});
        SetCommitHook({});
        SetDesktop(&DesktopCalls);
    }

    static QString Call(const QString& tail, int flags) {
        return QStringLiteral("%1 %2").arg(Path(tail)).arg(flags);
    }

    bool mark = true;
};

TEST_F(SoundFunctionsTest, EachNamePlaysItsFileWithItsFlags) {
    for (const char* name :
         {"Stack", "Shuffle", "DrawCard", "DrawStack", "InitAnimation", "Applause"})
        PlaySoundEffect(QLatin1String(name));
    EXPECT_EQ(DesktopCalls.Sounds, QStringList({
                                       Call(QStringLiteral("sounds/stack.wav"), 1),
                                       Call(QStringLiteral("sounds/shuffle.wav"), 1),
                                       Call(QStringLiteral("sounds/turn.wav"), 0x20001),
                                       Call(QStringLiteral("sounds/Draw.wav"), 1),
                                       Call(QStringLiteral("sounds/Draw.wav"), 1),
                                       Call(QStringLiteral("sounds/applause.wav"), 0x20001),
                                   }));
}

TEST_F(SoundFunctionsTest, SwitchedOffNoCallIsMade) {
    mark = false;
    PlaySoundEffect(QStringLiteral("DrawCard"));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(SoundFunctionsTest, SwitchIsReadAtEachCall) {
    mark = false;
    PlaySoundEffect(QStringLiteral("Stack"));
    mark = true;
    PlaySoundEffect(QStringLiteral("Applause"));
    mark = false;
    PlaySoundEffect(QStringLiteral("Shuffle"));
    EXPECT_EQ(DesktopCalls.Sounds,
              QStringList(Call(QStringLiteral("sounds/applause.wav"), 0x20001)));
}

TEST_F(SoundFunctionsTest, UnknownNameMakesNoCall) {
    for (const char* name : {"", "applause", "Applause ", "Win"})
        PlaySoundEffect(QLatin1String(name));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(SoundFunctionsTest, WithoutASwitchNothingIsPlayed) {
    SetSoundSwitch({});
    PlaySoundEffect(QStringLiteral("Applause"));
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

TEST_F(SoundFunctionsTest, ASoundWaitsForTheCommitOfItsActionAndTheCommitForNoSound) {
    class HangingDesktop : public ScriptedDesktop {
    public:
        explicit HangingDesktop(QStringList& log) : log_(log) {}
        void PlaySoundA(const QString&, quint32) override { log_ += QStringLiteral("hangs"); }

    private:
        QStringList& log_;
    };
    QStringList log;
    HangingDesktop desktop(log);
    SetDesktop(&desktop);
    SetCommitHook([&log] { log += QStringLiteral("commit"); });
    Boxes.Expect(QStringLiteral("Well done"), PromptAnswer::Ok,
                 [&log] { log += QStringLiteral("box"); });
    RunAction([&log] {
        PlaySoundEffect(QStringLiteral("Applause"));
        log += QStringLiteral("written");
        Tell(QStringLiteral("Well done"));
        PlaySoundEffect(QStringLiteral("Applause"));
        log += QStringLiteral("written");
    });
    EXPECT_EQ(log.join(QLatin1Char(' ')),
              QStringLiteral("written commit hangs box written commit hangs"));
}

TEST_F(SoundFunctionsTest, WhatCouldNotBeStoredMakesNoSound) {
    bool isFull = true;
    SetCommitHook([&isFull] {
        if (std::exchange(isFull, false))
            throw RuntimeError(ErrorNumber::EngineFault);
    });
    Boxes.ExpectError(ErrorNumber::EngineFault);
    RunAction([] { PlaySoundEffect(QStringLiteral("Applause")); });
    EXPECT_TRUE(DesktopCalls.Sounds.isEmpty());
}

} // namespace
