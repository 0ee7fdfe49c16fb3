// SPDX-License-Identifier: GPL-3.0-or-later
// What the format strings of a POSIX locale say.
#pragma once

#include <string>

namespace sm::system {

/// The text between the first two fields of a date format such as "%d.%m.%Y"; "/" for "%D" and when there is none.
std::string DateSeparatorOf(const std::string& dateFormat);

/// The name of a locale with UTF-8 for its code set: "de_DE@euro" gives "de_DE.UTF-8@euro". "C" and "POSIX" give
/// "C.UTF-8".
std::string InUtf8(const std::string& localeName);

} // namespace sm::system
