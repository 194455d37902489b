// Files that nobody has touched for a while.
#pragma once

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace pintalux {

/// Lets a file seem to have been written that many days ago.
inline void MakeOld(const std::string& path, int days) {
    const timespec then[2] = {{std::time(nullptr) - std::time_t{days} * 86400, 0},
                              {std::time(nullptr) - std::time_t{days} * 86400, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), then, 0), 0);
}

} // namespace pintalux
