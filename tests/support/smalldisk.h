// A disk that is soon full, where the tests may mount one.
#pragma once

#ifndef _WIN32

#include "base/paths.h"

#include <utility>

#include <sys/mount.h>

namespace norvik::test {

/// A disk of a few pages, which is taken away with the object.
class SmallDisk {
  public:
    explicit SmallDisk(FilePath path) : path_(std::move(path)) {
        mounted_ = mount("none", path_.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    SmallDisk(SmallDisk&&) = delete;
    SmallDisk& operator=(SmallDisk&&) = delete;
    ~SmallDisk() {
        if (mounted_) {
            umount(path_.c_str());
        }
    }
    [[nodiscard]] bool IsMounted() const { return mounted_; }

  private:
    FilePath path_;
    bool mounted_ = false;
};

}  // namespace norvik::test

#endif
