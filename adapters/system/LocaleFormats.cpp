// SPDX-License-Identifier: GPL-3.0-or-later
#include "LocaleFormats.h"

namespace sm::system {
namespace {

constexpr const char* kDefaultSeparator = "/";

/// Length of the field that begins with the "%" at `at`, flags, width and modifier included; 0 at the end of the text.
std::size_t FieldLength(const std::string& format, std::size_t at)
{
    const std::size_t type = format.find_first_not_of("_-0^#123456789EO", at + 1);
    return type == std::string::npos ? 0 : type - at + 1;
}

} // namespace

std::string DateSeparatorOf(const std::string& dateFormat)
{
    const std::size_t first = dateFormat.find('%');
    const std::size_t length = first == std::string::npos ? 0 : FieldLength(dateFormat, first);
    if (length == 0)
        return kDefaultSeparator;
    const char type = dateFormat[first + length - 1];
    if (type == 'F')
        return "-";
    const std::size_t next = dateFormat.find('%', first + length);
    if (type == 'D' || next == std::string::npos || next == first + length)
        return kDefaultSeparator;
    return dateFormat.substr(first + length, next - first - length);
}

std::string InUtf8(const std::string& localeName)
{
    if (localeName.empty() || localeName == "C" || localeName == "POSIX")
        return "C.UTF-8";
    const std::size_t modifier = localeName.find('@');
    const std::string tail = modifier == std::string::npos ? std::string() : localeName.substr(modifier);
    const std::string name = localeName.substr(0, modifier);
    return name.substr(0, name.find('.')) + ".UTF-8" + tail;
}

} // namespace sm::system
