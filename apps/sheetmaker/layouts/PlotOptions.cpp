// SPDX-License-Identifier: GPL-3.0-or-later
#include "layouts/PlotOptions.h"

#include "base/text/Keywords.h"
#include "base/text/Names.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "drawing/Drawing.h"
#include "plotting/PaperTable.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <optional>

namespace sm::app {
namespace {

constexpr double kTolerance = 3; // mm, as where papers are matched

cadhost::FittedPaper PaperOf(const PaperSize& row)
{
    return {row.CanonicalMediaName, row.LocaleMedianame, row.Width, row.Height};
}

/// "420x297mm" or "420x297".
std::optional<std::pair<double, double>> SidesIn(const std::string& word)
{
    double width = 0, height = 0;
    int length = 0;
    if (std::sscanf(word.c_str(), "%lf%*1[xX]%lf%n", &width, &height, &length) != 2)
        return std::nullopt;
    const std::string rest = word.substr(static_cast<std::size_t>(length));
    const bool ends = rest.empty() || base::SameAscii(rest, "mm") || base::SameAscii(rest, " mm");
    return ends && width > 0 && height > 0 ? std::optional(std::pair(width, height)) : std::nullopt;
}

/// "ISO A3 (420.00 x 297.00 MM)" without what stands in brackets, and "A3".
bool IsShortName(const std::string& word, const std::string& name)
{
    const std::string family = name.substr(0, name.find(" ("));
    return base::SameName(word, family) || base::SameName(word, family.substr(family.find(' ') + 1));
}

/// How far a paper is from the sides, in millimetres.
double Distance(const PaperSize& row, const std::pair<double, double>& sides)
{
    return std::max(std::abs(row.Width - sides.first), std::abs(row.Height - sides.second));
}

[[noreturn]] void RefusePaper(const std::string& word, const std::vector<std::string>& near)
{
    throw Refusal{kExitUsage, "there is no paper \"" + word + "\"; the nearest are " + QuotedList(near)};
}

cadhost::FittedPaper PaperOfSides(const std::string& word, const std::pair<double, double>& sides,
                                  std::vector<PaperSize> table)
{
    const auto nearer = [&](const PaperSize& a, const PaperSize& b) { return Distance(a, sides) < Distance(b, sides); };
    std::stable_sort(table.begin(), table.end(), nearer);
    if (Distance(table.front(), sides) > kTolerance)
        RefusePaper(word, {table[0].LocaleMedianame, table[1].LocaleMedianame, table[2].LocaleMedianame});
    return PaperOf(table.front());
}

std::string StyleNamed(const std::string& wanted, const std::vector<std::string>& styles)
{
    std::string found;
    for (const char* ending : {"", ".ctb", ".stb"})
        if (found.empty())
            found = FindName(wanted + ending, styles);
    if (found.empty()) {
        const std::string suggestion = Suggestion(wanted, styles);
        throw Refusal{kExitUsage, "there is no plot style table \"" + wanted + "\"" +
                                      (suggestion.empty() ? "; there are " + QuotedList(styles) : suggestion)};
    }
    return found;
}

/// The table that makes everything black or grey in a drawing of its kind.
std::string ToneStyle(const PlotOptions& options, const drawing::Drawing& drawing)
{
    const bool byColor = drawing.HeaderInteger("$PSTYLEMODE", 1) != 0;
    if (options.tone == Tone::Mono)
        return byColor ? "monochrome.ctb" : "monochrome.stb";
    if (!byColor)
        throw Refusal{kExitFailed, "--grey needs plot styles by colour, and the drawing has named ones; "
                                   "--job-options \"Greyscale [600 dpi]\" turns its colours"};
    return "grayscale.ctb";
}

} // namespace

cadhost::FittedPaper PaperCalled(const std::string& word)
{
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    if (const auto sides = SidesIn(word))
        return PaperOfSides(word, *sides, table);
    const PaperSize* found = nullptr;
    std::vector<std::string> names;
    for (const PaperSize& row : table) {
        if (base::SameName(word, row.LocaleMedianame) || base::SameName(word, row.CanonicalMediaName))
            return PaperOf(row);
        if (IsShortName(word, row.LocaleMedianame) && (found == nullptr || row.Width > row.Height))
            found = &row;
        names.push_back(row.LocaleMedianame.substr(0, row.LocaleMedianame.find(" (")));
    }
    if (found != nullptr)
        return PaperOf(*found);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    const std::string suggestion = Suggestion(word, names);
    throw Refusal{kExitUsage, "there is no paper \"" + word + "\"" +
                                  (suggestion.empty() ? "; there are " + QuotedList(names) : suggestion)};
}

cadhost::PlotWishes WishesOf(const PlotOptions& options, const drawing::Drawing& drawing,
                             const std::vector<std::string>& styles)
{
    cadhost::PlotWishes wishes;
    if (options.paper)
        wishes.paper = PaperCalled(*options.paper);
    wishes.landscape = options.landscape;
    wishes.fit = options.fit;
    if (options.scale)
        wishes.scale = {options.scale->paper, options.scale->drawing};
    wishes.center = options.center;
    if (options.style)
        wishes.style = base::SameName(*options.style, "none") ? std::string() : StyleNamed(*options.style, styles);
    if (options.tone != Tone::AsDrawn)
        wishes.style = StyleNamed(ToneStyle(options, drawing), styles);
    wishes.penScale = options.penScale;
    return wishes;
}

void ApplyWishes(const cadhost::PlotWishes& wishes, PageSetupRecord& record)
{
    if (wishes.paper) {
        record.CanonicalMediaName = wishes.paper->canonicalName;
        record.LocaleMedianame = wishes.paper->localeName;
        record.PaperWidth = wishes.paper->width;
        record.PaperHeight = wishes.paper->height;
        record.PlotRotation = 0;
    }
    const bool lying = (record.PlotRotation & 1) != 0;
    if (wishes.landscape && ((record.PaperWidth > record.PaperHeight) != lying) != *wishes.landscape) {
        std::swap(record.PaperWidth, record.PaperHeight);
        record.CanonicalMediaName.clear(); // it is matched by its size
    }
    if (wishes.fit || wishes.scale)
        record.UseStandardScale = wishes.fit ? 1 : 0;
    if (wishes.fit) {
        record.StandardScale = 0;
        record.PlotType = record.PlotType == kPlotLayout ? kPlotExtents : record.PlotType;
    }
    if (wishes.scale) {
        record.ScaleNumer = wishes.scale->paper;
        record.ScaleDenom = wishes.scale->drawing;
        record.PaperUnits = kPaperMillimeters;
    }
    if (wishes.center)
        record.CenterPlot = 1;
    if (wishes.style) {
        record.StyleSheet = *wishes.style;
        record.PlotWithPlotStyles = wishes.style->empty() ? 0 : 1;
    }
}

} // namespace sm::app
