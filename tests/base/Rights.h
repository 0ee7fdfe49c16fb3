// SPDX-License-Identifier: GPL-3.0-or-later
// The rights of a file, as the system has them.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace sm::base {

inline mode_t RightsOf(const std::string& path)
{
    struct stat state {};
    EXPECT_EQ(::stat(path.c_str(), &state), 0);
    return state.st_mode & 07777;
}

} // namespace sm::base
