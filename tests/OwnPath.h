// SPDX-License-Identifier: GPL-3.0-or-later
// Files of one test process: ctest runs several of a program at a time.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

namespace sm {

/// A path that no other process uses; who makes a file there removes it.
inline std::string OwnPath(const std::string& name)
{
    return testing::TempDir() + std::to_string(::getpid()) + "-" + name;
}

} // namespace sm
