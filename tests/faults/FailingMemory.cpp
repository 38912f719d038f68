#include "tests/faults/FailingMemory.h"

#include <cerrno>
#include <cstddef>

namespace {

thread_local struct {
    bool isCounted = false;
    bool forGood = false;
    bool hasFailed = false;
    qint64 made = 0;
    qint64 failing = 0;
} Memory;

bool Fails() {
    if (!Memory.isCounted)
        return false;
    ++Memory.made;
    if (Memory.made != Memory.failing && !(Memory.forGood && Memory.made > Memory.failing))
        return false;
    Memory.hasFailed = true;
    errno = ENOMEM;
    return true;
}

} // namespace

void FailingMemory::FailAt(qint64 number, bool forGood) {
    Memory = {true, forGood, false, 0, number};
}

qint64 FailingMemory::Mend() {
    Memory.isCounted = false;
    return Memory.made;
}

bool FailingMemory::HasFailed() {
    return Memory.hasFailed;
}

// These stand before those of the C library, by whose own names they allocate; C++'s rest on them.
extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* former, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) noexcept {
    return Fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return Fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* former, std::size_t size) noexcept {
    return Fails() ? nullptr : __libc_realloc(former, size);
}

} // extern "C"
