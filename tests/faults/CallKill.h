#pragma once

#include <functional>

/// Does something in a copy of this process that is killed at its `calls`-th entry into the system
/// or return from it. True if it was killed before it had come to its end.
bool KilledAtCall(int calls, const std::function<void()>& work);
