#include "support/SoundFunctions.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"

#include <array>
#include <utility>

namespace {

constexpr quint32 SND_ASYNC = 1;
constexpr quint32 SND_FILENAME = 0x20000;

struct SoundEffect {
    QLatin1String name;
    QLatin1String file;
    quint32 flags;
};

constexpr std::array<SoundEffect, 6> SoundEffects = {{
    {QLatin1String("Stack"), QLatin1String("sounds/stack.wav"), SND_ASYNC},
    {QLatin1String("Shuffle"), QLatin1String("sounds/shuffle.wav"), SND_ASYNC},
    {QLatin1String("DrawCard"), QLatin1String("sounds/turn.wav"), SND_ASYNC | SND_FILENAME},
    {QLatin1String("DrawStack"), QLatin1String("sounds/Draw.wav"), SND_ASYNC},
    {QLatin1String("InitAnimation"), QLatin1String("sounds/Draw.wav"), SND_ASYNC},
    {QLatin1String("Applause"), QLatin1String("sounds/applause.wav"), SND_ASYNC | SND_FILENAME},
}};

std::function<bool()>& SoundSwitch() {
    static std::function<bool()> isOn;
    return isOn;
}

} // namespace

void PlaySoundEffect(const QString& SoundName) {
    if (!SoundSwitch() || !SoundSwitch()())
        return;
    for (const SoundEffect& effect : SoundEffects)
        if (SoundName == effect.name) {
            // What is heard has been stored, and a device that hangs keeps nothing from being so.
            AfterCommit([&desktop = CurrentDesktop(), file = InProgramFolder(effect.file),
                         flags = effect.flags] { desktop.PlaySoundA(file, flags); });
            return;
        }
}

void SetSoundSwitch(std::function<bool()> isOn) {
    SoundSwitch() = std::move(isOn);
}
