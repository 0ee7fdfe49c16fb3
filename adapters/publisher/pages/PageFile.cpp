#include "pages/PageFile.h"

#include "pdf/PdfNumbers.h"
#include "pdf/PublishStatus.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::publisher {

namespace {

constexpr double kLargestSide = 1440000;
constexpr std::int32_t kLowestResolution = 72;
constexpr std::int32_t kHighestResolution = 4800;

[[noreturn]] void FailReading(const std::string& path, std::size_t number, const std::string& reason)
{
    throw PublishFailure(
        PublishStatus::PostScriptMissing,
        fmt::format("Page {}: the PostScript file {} can't be read: {}. Plot the sheet again.", number, path, reason));
}

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

void CheckPostScriptFile(const std::string& path, std::size_t pageNumber)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        FailReading(path, pageNumber, std::strerror(errno));
    }
    struct stat status {};
    const bool regular = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    char first[3] = {};
    const ssize_t got = regular ? ::read(descriptor, first, sizeof first) : 0;
    ::close(descriptor);
    if (!regular || got < 0) {
        FailReading(path, pageNumber, regular ? "reading failed" : "it is not an ordinary file");
    }
    const std::string why = WhyNotPostScript({first, static_cast<std::size_t>(got)});
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
