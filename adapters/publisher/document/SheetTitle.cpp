// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/SheetTitle.h"

#include "base/files/File.h"
#include "base/text/Utf8.h"
#include "joboptions/JobOptionsValue.h"
#include "pages/PageFile.h"

#include <algorithm>
#include <exception>

namespace sm::publisher {

namespace {

constexpr std::size_t kHeadBytes = 4096;
constexpr std::string_view kComment = "%%Title:";

std::string_view TrimBlanks(std::string_view text)
{
    const auto begin = text.find_first_not_of(" \t");
    const auto end = text.find_last_not_of(" \t\r");
    return begin == std::string_view::npos || end == std::string_view::npos ? std::string_view()
                                                                            : text.substr(begin, end - begin + 1);
}

/// A PostScript string's text; what isn't a whole string is taken as it stands.
std::string StringText(std::string_view text)
{
    try {
        JobOptionsScanner scanner(text, "title");
        return scanner.NextValue().text;
    } catch (const std::exception&) {
        return std::string(text);
    }
}

} // namespace

std::string FindSheetTitle(std::string_view head)
{
    for (std::size_t at = 0; at < head.size();) {
        const std::size_t end = std::min(head.find_first_of("\r\n", at), head.size());
        const std::string_view line = head.substr(at, end - at);
        if (line.starts_with("%%EndComments")) {
            break;
        }
        if (line.starts_with(kComment)) {
            const std::string_view text = TrimBlanks(line.substr(kComment.size()));
            return base::ValidUtf8(text.starts_with('(') ? StringText(text) : std::string(text));
        }
        at = end + 1;
    }
    return {};
}

std::string ReadSheetTitle(const std::string& psPath, std::size_t pageNumber)
{
    std::error_code error;
    base::File file = base::File::Open(psPath, error);
    std::string head(kHeadBytes, '\0');
    try {
        head.resize(error ? 0 : file.Read(head.data(), head.size()));
    } catch (const std::system_error& fault) {
        error = fault.code();
    }
    if (error) {
        FailReading(psPath, pageNumber, error.message());
    }
    return FindSheetTitle(head);
}

} // namespace sm::publisher
