#pragma once

#include <cerrno>
#include <gtest/gtest.h>
#include <system_error>
#include <unistd.h>

/// While it lives this process has the rights of an ordinary user, who owns no file here; of no
/// effect if it has them anyway. Throws std::system_error if the machine refuses.
class OrdinaryUser {
public:
    OrdinaryUser() : former_(::geteuid()) {
        constexpr uid_t nobody = 65534;
        if (former_ == 0 && ::seteuid(nobody) != 0)
            throw std::system_error(errno, std::generic_category(), "seteuid");
    }
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(former_), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t former_;
};
