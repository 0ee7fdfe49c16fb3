// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/FileUri.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>

namespace sm::app {
namespace {

constexpr std::string_view kScheme = "file://";

/// What stands for itself: the unreserved characters of RFC 3986, and what parts folders.
bool StandsForItself(char c)
{
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return letter || std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// "C:/plan.dxf"; such a name begins no whole path where drives have no letters.
bool HasDrive(std::string_view path)
{
    return path.size() > 2 && path[1] == ':' && path[2] == '/';
}

} // namespace

std::string FileUri(const std::string& path)
{
    if (path.empty())
        return {};
    std::string uri(kScheme);
    const std::string whole = base::ToText(std::filesystem::absolute(base::ToPath(path)));
    if (HasDrive(whole))
        uri += '/'; // where a machine's name would end
    for (const char c : whole) {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (StandsForItself(c) || (c == ':' && HasDrive(whole)))
            uri += c;
        else
            uri += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return uri;
}

std::string PathOfUri(const std::string& uri)
{
    if (!uri.starts_with(kScheme))
        return {};
    std::string path;
    for (std::size_t i = kScheme.size(); i < uri.size(); ++i) {
        if (uri[i] != '%') {
            path += uri[i];
            continue;
        }
        unsigned byte = 0;
        const char* const first = uri.data() + i + 1;
        if (i + 2 >= uri.size() || std::from_chars(first, first + 2, byte, 16).ptr != first + 2)
            return {};
        path += static_cast<char>(byte);
        i += 2;
    }
    if (HasDrive(std::string_view(uri).substr(std::min(kScheme.size() + 1, uri.size())))) // not escaped there
        path.erase(0, 1);
    return path;
}

} // namespace sm::app
