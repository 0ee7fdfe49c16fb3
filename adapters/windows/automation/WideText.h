// SPDX-License-Identifier: GPL-3.0-or-later
// Text between the plug-in (UTF-8) and Windows (UTF-16).
//
// Names on Windows may hold surrogates without their other half. Those go through whole, in the three bytes that the
// scheme of UTF-8 has for them, so that what a host gave is what it gets back.
#pragma once

#include <string>
#include <string_view>

namespace sm::windows {

/// What isn't UTF-8 otherwise becomes U+FFFD.
std::wstring Wide(std::string_view text);
std::string Utf8(std::wstring_view text);

} // namespace sm::windows
