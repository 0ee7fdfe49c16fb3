// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Places.h"

namespace sm::system {

std::filesystem::path ExecutablePath()
{
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

} // namespace sm::system
