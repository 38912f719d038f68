#pragma once

#include <QtGlobal>
#include <csignal>
#include <sys/resource.h>

/// While it lives no file of this process grows beyond `bytes`, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(qint64 bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        rlimit limit = former_;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit former_{};
};
