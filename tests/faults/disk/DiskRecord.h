#pragma once

#include <cstddef>
#include <cstdint>

/// What the recorder notes of a process: a DiskNote for each call, followed by `size` bytes.
enum class FileCall : int32_t {
    Open,     ///< bytes: the path; of a file or a folder that is there
    Make,     ///< bytes: the path; of a file that was not there
    Write,    ///< number: the offset; bytes: what is written
    Truncate, ///< number: the new size
    Sync,     ///< of a file's contents, or of a folder's names
    Unlink,   ///< bytes: the path
    Rename,   ///< bytes: both paths, a line each
    Other,    ///< a call that may fail, of which a power cut takes nothing back
    Report    ///< number: what the process has told its parent
};

struct DiskNote {
    FileCall call;
    int32_t fd;
    int64_t number;
    uint64_t size;
};

/// The exit code of a process that the recorder has ended.
inline constexpr int KilledByRecorder = 77;
