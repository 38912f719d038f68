#pragma once

#include <QString>

/// Plays wave files, one at a time.
class WavePlayer {
public:
    virtual ~WavePlayer() = default;

    /// Ends the former sound and begins this one, if there is such a file; returns at once.
    virtual void Play(const QString& waveFile) = 0;

protected:
    WavePlayer() = default;
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;
};

/// The player in the library WavePlayerLibrary; belongs to the caller.
using MakeWavePlayerFunction = WavePlayer* (*)();
inline constexpr const char* WavePlayerLibrary = WAVE_PLAYER_LIBRARY;
inline constexpr const char* MakeWavePlayerName = "MakeWavePlayer";
