#pragma once

#include <QtGlobal>
#include <csignal>
#include <sys/resource.h>

/// While it lives no file of this process grows beyond a size: writing further fails as on a disk
/// without room.
class FileSizeLimit {
public:
    explicit FileSizeLimit(qint64 bytes) {
        formerHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &former_);
        rlimit limit = former_;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit former_{};
    void (*formerHandler_)(int) = SIG_DFL;
};
