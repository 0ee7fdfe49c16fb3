// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PaperRules.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace sm::cadhost {
namespace {

constexpr double kTolerance = 3;         // mm
constexpr double kLargestSheet = 100000; // mm
constexpr Margins kAssumedMargins{5, 5, 5, 5};

bool IsTurned(std::int32_t rotation)
{
    return (rotation & 1) != 0;
}

std::string Fixed2(double value)
{
    std::array<char, 48> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 2);
    return {buffer.data(), end.ptr};
}

} // namespace

Margins TurnedMargins(const Margins& m, std::int32_t rotation)
{
    switch (rotation & 3) {
    case 1:
        return {m.top, m.left, m.bottom, m.right};
    case 2:
        return {m.right, m.top, m.left, m.bottom};
    case 3:
        return {m.bottom, m.right, m.top, m.left};
    default:
        return m;
    }
}

bool SameSheet(double width, double height, double otherWidth, double otherHeight)
{
    return std::abs(std::nearbyint(width) - std::nearbyint(otherWidth)) <= kTolerance &&
           std::abs(std::nearbyint(height) - std::nearbyint(otherHeight)) <= kTolerance;
}

bool HasPaper(const drawing::PlotSettings& settings)
{
    const auto isSide = [](double side) { return side > 0 && side <= kLargestSheet; };
    return isSide(settings.paperWidth) && isSide(settings.paperHeight);
}

Margins MarginsOf(const drawing::PlotSettings& settings)
{
    const Margins margins{settings.marginLeft, settings.marginBottom, settings.marginRight, settings.marginTop};
    const bool usable = margins.left >= 0 && margins.bottom >= 0 && margins.right >= 0 && margins.top >= 0 &&
                        margins.left + margins.right < settings.paperWidth &&
                        margins.bottom + margins.top < settings.paperHeight;
    return usable ? margins : Margins{};
}

Medium MediumOf(const drawing::PlotSettings& settings)
{
    std::string name = settings.mediaName;
    if (name.empty())
        name = "User_(" + Fixed2(settings.paperWidth) + "_x_" + Fixed2(settings.paperHeight) + "_MM)";
    std::string shown = name;
    std::replace(shown.begin(), shown.end(), '_', ' ');
    return {name, shown, settings.paperWidth, settings.paperHeight, MarginsOf(settings)};
}

Margins MarginsInForce(const drawing::PlotSettings& own, const Medium& medium, std::int32_t rotation)
{
    if (!HasPaper(own))
        return medium.margins;
    const bool otherWay = IsTurned(own.rotation) != IsTurned(rotation);
    const double width = otherWay ? medium.height : medium.width;
    const double height = otherWay ? medium.width : medium.height;
    if (SameSheet(own.paperWidth, own.paperHeight, width, height))
        return TurnedMargins(TurnedMargins(MarginsOf(own), own.rotation), 4 - (rotation & 3));
    if (SameSheet(own.paperWidth, own.paperHeight, medium.width, medium.height))
        return MarginsOf(own);
    return medium.margins;
}

Medium AssumedMedium(bool metric, bool landscape)
{
    if (metric) {
        if (landscape)
            return {"ISO_A4_(297.00_x_210.00_MM)", "ISO A4 (297.00 x 210.00 MM)", 297, 210, kAssumedMargins};
        return {"ISO_A4_(210.00_x_297.00_MM)", "ISO A4 (210.00 x 297.00 MM)", 210, 297, kAssumedMargins};
    }
    if (landscape)
        return {"ANSI_A_(11.00_x_8.50_Inches)", "ANSI A (11.00 x 8.50 Inches)", 279.4, 215.9, kAssumedMargins};
    return {"ANSI_A_(8.50_x_11.00_Inches)", "ANSI A (8.50 x 11.00 Inches)", 215.9, 279.4, kAssumedMargins};
}

} // namespace sm::cadhost
