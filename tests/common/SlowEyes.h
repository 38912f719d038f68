#pragma once

#include "platform/forms/ActivationTracker.h"
#include "tests/common/TestRun.h"

#include <QtGlobal>

/// While it lives a press is taken for one on what nobody has seen however long the machine takes
/// from the form's activation to the press.
class SlowEyes {
public:
    SlowEyes() { ActivationTracker::SetReactionTime(Patience); }
    ~SlowEyes() { ActivationTracker::SetReactionTime(ActivationTracker::UsualReactionTime); }
    Q_DISABLE_COPY_MOVE(SlowEyes)
};
