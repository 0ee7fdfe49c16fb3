// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/GhostscriptDriver.h"

#include "base/Units.h"
#include "pdf/PdfNumbers.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

// The interpreter counts device coordinates in 1/256 pixel within 31 bits; a quarter of that is kept free for
// strokes that leave the page.
constexpr double kLargestDeviceSide = 6e6;
constexpr std::int32_t kLowestAsked = 10;

// A PostScript program may end with its operands, dictionaries or definitions lying about: they are cleared before
// the restore. What its error left on the stacks is printed, never trusted.
constexpr std::string_view kPrologue = R"(/SmTell { {20 string cvs} stopped {pop pop (-)} if print ( ) print } bind def
/SmName { {60 string cvs} stopped {clear (-)} if print } bind def
/SmEnd { (\n) print flush } bind def
/SmError { $error exch 2 copy known {get} {pop pop (-)} ifelse } bind def
/SmPage {
  /SmRes exch def /SmH exch def /SmW exch def /SmPath exch def
  << /PageSize [SmW SmH] /HWResolution [SmRes SmRes] /Orientation 0 >> setpagedevice
  /SmStart currentpagedevice /PageCount get def
  /SmSave save def
  /SmFile SmPath (r) file def
  { SmFile cvx exec } stopped
  { (error) SmSay /errorname SmError SmTell
    { SmFile fileposition } stopped { pop -1 } if SmTell
    /command SmError SmName SmEnd quit } if
  clear cleardictstack SmSave restore
  (page) SmSay currentpagedevice /PageCount get SmStart sub SmTell SmEnd
} bind def
)";

std::vector<std::string_view> Words(std::string_view line)
{
    std::vector<std::string_view> words;
    while (!line.empty()) {
        const auto end = std::min(line.find(' '), line.size());
        if (end > 0) {
            words.push_back(line.substr(0, end));
        }
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return words;
}

long long Number(std::string_view word)
{
    long long number = -1;
    const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
    return result.ec == std::errc() ? number : -1;
}

void ReadReportLine(const std::vector<std::string_view>& words, DriverReport& report)
{
    const auto word = [&](std::size_t at) { return at < words.size() ? std::string(words[at]) : std::string(); };
    if (word(0) == "page" && !report.error) {
        report.pagesMade.push_back(static_cast<long>(Number(word(1))));
    } else if ((word(0) == "error" || word(0) == "options") && !report.error) {
        report.error = DriverReport::Error{word(0) == "options", word(1), word(3), Number(word(2))};
    }
}

} // namespace

std::int32_t UsableResolution(double width, double height, std::int32_t resolution)
{
    const double highest = kLargestDeviceSide * base::kPointsPerInch / std::max({width, height, 1.0});
    return std::max(kLowestAsked, static_cast<std::int32_t>(std::min<double>(resolution, highest)));
}

std::string PageFileName(std::size_t index)
{
    return fmt::format("{}.ps", index + 1);
}

std::string TakeColorConversion(std::string& jobOptions)
{
    static constexpr std::string_view kSetting = "/ColorConversionStrategy /";
    const auto begin = jobOptions.find(kSetting);
    if (begin == std::string::npos) {
        return {};
    }
    const auto end = std::min(jobOptions.find('\n', begin), jobOptions.size());
    std::string value = jobOptions.substr(begin + kSetting.size(), end - begin - kSetting.size());
    jobOptions.erase(begin, end - begin + 1);
    return value;
}

std::string DriverProgram(const std::vector<PageSource>& pages, const std::string& jobOptions, const std::string& nonce)
{
    std::string program =
        fmt::format("%!PS\n/SmSay {{ (\\n{} ) print print ( ) print }} bind def\n{}", nonce, kPrologue);
    // Fonts that every reader is said to have are embedded like all others unless the job options name them.
    program += fmt::format("{{ << /NeverEmbed [ ] {} >> setdistillerparams }} stopped\n"
                           "{{ (options) SmSay /errorname SmError SmTell -1 SmTell (-) SmName SmEnd quit }} if\n",
                           jobOptions);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PageSource& page = pages[i];
        program += fmt::format("({}) {} {} {} SmPage\n", PageFileName(i), NumberText(page.width),
                               NumberText(page.height), UsableResolution(page.width, page.height, page.resolution));
    }
    return program;
}

DriverReport ReadDriverOutput(std::string_view output, std::string_view nonce)
{
    DriverReport report;
    while (!output.empty()) {
        const auto end = std::min(output.find('\n'), output.size());
        std::string_view line = output.substr(0, end);
        output.remove_prefix(std::min(end + 1, output.size()));
        if (line.ends_with('\r')) // what the interpreter prints is text, with the line ends of its system
            line.remove_suffix(1);
        if (line.starts_with(nonce)) {
            ReadReportLine(Words(line.substr(nonce.size())), report);
        } else if (!line.empty()) {
            report.otherOutput += fmt::format("{}\n", line);
        }
    }
    return report;
}

} // namespace sm::publisher
