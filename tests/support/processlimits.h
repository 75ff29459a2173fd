// What a test takes away from its own process for a while: room on the disk, the rights of root.
#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

namespace norvik::test {

/// While it lives, no file of this process grows beyond `size` bytes.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        rlimit limit = old_;
        limit.rlim_cur = size;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit old_{};
    void (*handler_)(int);
};

/// While it lives, the process has no more rights than any user.
class AsAnyUser {
  public:
    AsAnyUser() : wasRoot_(geteuid() == 0) {
        if (wasRoot_) {
            EXPECT_EQ(setresuid(AnyUser, AnyUser, 0), 0);
        }
    }
    AsAnyUser(const AsAnyUser&) = delete;
    AsAnyUser& operator=(const AsAnyUser&) = delete;
    AsAnyUser(AsAnyUser&&) = delete;
    AsAnyUser& operator=(AsAnyUser&&) = delete;
    ~AsAnyUser() {
        if (wasRoot_) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
    }

  private:
    static constexpr uid_t AnyUser = 65534;
    bool wasRoot_;
};

}  // namespace norvik::test

#endif
