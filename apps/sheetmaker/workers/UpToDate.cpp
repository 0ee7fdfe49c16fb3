// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/UpToDate.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// ISO 32000: "%PDF-" at the begin, "startxref" and "%%EOF" in the last kibibyte.
bool IsWhole(const fs::path& pdf)
{
    constexpr std::streamoff kTail = 1024;
    std::error_code unreadable;
    if (!fs::is_regular_file(pdf, unreadable)) // a pipe would be waited for
        return false;
    std::ifstream file(pdf, std::ios::binary);
    std::string head(5, '\0');
    if (!file.read(head.data(), static_cast<std::streamsize>(head.size())) || head != "%PDF-")
        return false;
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    const std::streamoff length = std::min(size, kTail);
    std::string tail(static_cast<std::size_t>(length), '\0');
    file.seekg(size - length);
    if (!file.read(tail.data(), length))
        return false;
    const std::size_t reference = tail.rfind("startxref");
    return reference != std::string::npos && tail.find("%%EOF", reference) != std::string::npos;
}

} // namespace

bool IsUpToDate(const std::string& drawing, const std::string& pdf)
{
    std::error_code unknown;
    const auto made = fs::last_write_time(base::ToPath(pdf), unknown);
    if (unknown)
        return false;
    const auto saved = fs::last_write_time(base::ToPath(drawing), unknown);
    if (unknown || made <= saved)
        return false;
    const auto beside = fs::last_write_time(base::ToPath(drawing + ".sheetmaker"), unknown);
    return (unknown || made > beside) && IsWhole(base::ToPath(pdf));
}

} // namespace sm::app
