// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/File.h"

namespace sm::base {

std::optional<std::string> ReadRegularFile(const std::string& path, std::uint64_t largest)
{
    std::error_code error;
    File file = File::Open(path, error);
    const FileFacts facts = file.IsOpen() ? file.Facts() : FileFacts{};
    if (facts.kind != FileKind::File || facts.stamp.size > largest)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(facts.stamp.size), '\0');
    try {
        bytes.resize(file.Read(bytes.data(), bytes.size()));
    } catch (const std::system_error&) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace sm::base
