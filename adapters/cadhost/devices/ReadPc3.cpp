// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/ReadPc3.h"

#include "base/files/Paths.h"
#include "devices/HostPc3.h"
#include "ports/HostError.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace sm::cadhost {
namespace {

constexpr std::uintmax_t kLargestConfiguration = 1 << 20;

} // namespace

Pc3File ParsePc3(std::string_view text, const std::string& name)
{
    return IsHostPc3(text) ? ParseHostPc3(text, name) : ParseOwnPc3(text, name);
}

Pc3File ReadPc3(const std::string& path)
{
    const std::string name = base::ToText(base::ToPath(path).filename());
    std::error_code error;
    const auto size = std::filesystem::file_size(base::ToPath(path), error);
    if (error)
        throw HostError(name + ": the plotter configuration can't be read: " + error.message());
    if (size > kLargestConfiguration)
        throw HostError(name + ": the plotter configuration is larger than 1 MiB");
    std::ifstream file(base::ToPath(path), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    if (!file)
        throw HostError(name + ": the plotter configuration can't be read");
    return ParsePc3(text.str(), name);
}

} // namespace sm::cadhost
