// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageFile.h"

#include "base/files/File.h"
#include "pdf/PdfNumbers.h"
#include "pdf/PublishStatus.h"

#include <fmt/format.h>
#include <string_view>

namespace sm::publisher {

namespace {

constexpr double kLargestSide = 1440000;
constexpr std::int32_t kLowestResolution = 72;
constexpr std::int32_t kHighestResolution = 4800;

/// Empty when the first bytes are those of PostScript.
std::string WhyNotPostScript(std::string_view first)
{
    if (first.starts_with('\x04')) {
        first.remove_prefix(1); // printer drivers put an end-of-transmission in front
    }
    return first.empty()             ? "is empty"
           : first.starts_with("%!") ? ""
                                     : "is not PostScript: it does not begin with \"%!\"";
}

} // namespace

void FailReading(const std::string& path, std::size_t pageNumber, const std::string& reason)
{
    throw PublishFailure(PublishStatus::PostScriptMissing,
                         fmt::format("Page {}: the PostScript file {} can't be read: {}. Plot the sheet again.",
                                     pageNumber, path, reason));
}

void CheckPostScriptFile(const std::string& path, std::size_t pageNumber)
{
    std::error_code error;
    base::File file = base::File::Open(path, error);
    if (!file.IsOpen()) {
        FailReading(path, pageNumber, error.message());
    }
    if (file.Facts().kind != base::FileKind::File) {
        FailReading(path, pageNumber, "it is not an ordinary file");
    }
    char first[3] = {};
    std::size_t got = 0;
    try {
        got = file.Read(first, sizeof first);
    } catch (const std::system_error&) {
        FailReading(path, pageNumber, "reading failed");
    }
    const std::string why = WhyNotPostScript({first, got});
    if (!why.empty()) {
        throw PublishFailure(PublishStatus::NotPostScript,
                             fmt::format("Page {}: the file {} {}. Plot the sheet again.", pageNumber, path, why));
    }
}

void CheckPageSize(double width, double height, std::int32_t resolution, std::size_t pageNumber)
{
    const auto usable = [](double side) { return side > 0 && side <= kLargestSide; }; // false for NaN too
    if (!usable(width) || !usable(height)) {
        throw PublishFailure(PublishStatus::PageSizeUnusable,
                             fmt::format("Page {}: a page of {} by {} points can't be made. Choose a paper size of at "
                                         "most 508 m a side.",
                                         pageNumber, NumberText(width), NumberText(height)));
    }
    if (resolution < kLowestResolution || resolution > kHighestResolution) {
        throw PublishFailure(PublishStatus::PageSizeUnusable,
                             fmt::format("Page {}: a resolution of {} dots per inch can't be used. Choose one from {} "
                                         "to {}.",
                                         pageNumber, resolution, kLowestResolution, kHighestResolution));
    }
}

} // namespace sm::publisher
