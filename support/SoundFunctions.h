#pragma once

#include <QString>
#include <functional>

/// Plays, once what the action under way has written is committed, a sound by its name ("Stack",
/// "Shuffle", "DrawCard", "DrawStack", "InitAnimation", "Applause"; exact). An action that a fault
/// undoes plays none. Any other name, and every name while the sound switch is off, plays nothing.
/// No form plays "Stack", "Shuffle" or "DrawStack".
void PlaySoundEffect(const QString& SoundName);

/// Sets what tells whether the main window's sound entry has its check mark. Without one no sound
/// is played.
void SetSoundSwitch(std::function<bool()> isOn);
