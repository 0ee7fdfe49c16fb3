// SPDX-License-Identifier: GPL-3.0-or-later
// Text between the plug-in (UTF-8) and Windows (UTF-16).
#pragma once

#include <string>
#include <string_view>

namespace sm::windows {

/// What isn't valid UTF-8 becomes U+FFFD.
std::wstring Wide(std::string_view text);
/// Unpaired surrogates become U+FFFD.
std::string Utf8(std::wstring_view text);

} // namespace sm::windows
