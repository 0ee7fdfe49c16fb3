// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/Paths.h"

namespace sm::base {

std::filesystem::path ToPath(std::string_view utf8)
{
#ifdef _WIN32
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
#else
    return std::filesystem::path(utf8);
#endif
}

std::string ToText(const std::filesystem::path& path)
{
#ifdef _WIN32
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
#else
    return path.native();
#endif
}

} // namespace sm::base
