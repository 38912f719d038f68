#pragma once

#include <QtGlobal>

/// While an application is being made: where the toolkit finds no display for its windows, the
/// process ends by a sentence on standard error and the exit code 1, not by the toolkit's abort.
class NoDisplay {
public:
    /// `program`: its name in the sentence; it must outlive this.
    explicit NoDisplay(const char* program);
    ~NoDisplay();
    NoDisplay(const NoDisplay&) = delete;
    NoDisplay& operator=(const NoDisplay&) = delete;
};
