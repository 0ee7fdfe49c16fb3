// SPDX-License-Identifier: GPL-3.0-or-later
// The only two places where a path is made from text and text from a path.
//
// Text inside is UTF-8. On Windows a std::filesystem::path that is made from a std::string takes the bytes for the ANSI
// code page, and string() gives them back in it: both would turn a name into another one.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace sm::base {

/// The path that UTF-8 text names. Elsewhere than on Windows the bytes stay as they are, UTF-8 or not.
std::filesystem::path ToPath(std::string_view utf8);

/// The path as UTF-8 text, with "/" for every separator: both systems take that one.
std::string ToText(const std::filesystem::path& path);

/// What divides the parts of a path on this system, and the folders in a list of them.
#ifdef _WIN32
inline constexpr std::string_view kSeparators = "/\\";
inline constexpr char kFolderDivider = ';';
#else
inline constexpr std::string_view kSeparators = "/";
inline constexpr char kFolderDivider = ':';
#endif

/// Can it name a folder alone?
inline bool EndsInSeparator(std::string_view path)
{
    return !path.empty() && kSeparators.find(path.back()) != std::string_view::npos;
}

} // namespace sm::base
