// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FileFacts.h"

namespace sm::base {

bool IsTooLarge(const std::error_code& error)
{
    return error == std::errc::file_too_large;
}

bool IsMissing(const std::error_code& error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

bool IsForbidden(const std::error_code& error)
{
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted;
}

bool IsReadOnlyPlace(const std::error_code& error)
{
    return error == std::errc::read_only_file_system;
}

} // namespace sm::base
