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

/// The path as UTF-8 text, with the separators that it holds.
std::string ToText(const std::filesystem::path& path);

} // namespace sm::base
