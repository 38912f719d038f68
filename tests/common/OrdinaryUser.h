#pragma once

#include <cstdlib>
#include <unistd.h>

/// While it lives this process has the rights of an ordinary user, who owns no file here; of no
/// effect if it has them anyway.
class OrdinaryUser {
public:
    OrdinaryUser() : former_(::geteuid()) {
        constexpr uid_t nobody = 65534;
        if (former_ == 0)
            wasChanged_ = ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser() {
        if (wasChanged_ && ::seteuid(former_) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t former_;
    bool wasChanged_ = false;
};
