// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotstyle/PlotPens.h"

#include "base/text/Names.h"
#include "base/text/Utf8.h"
#include "drawing/TextDecoder.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::int32_t kFirstIsoLinetype = 17; // the table's scale is for the others

std::uint32_t Gray(std::uint32_t rgb)
{
    const double red = rgb >> 16 & 0xFF, green = rgb >> 8 & 0xFF, blue = rgb & 0xFF;
    const auto level = static_cast<std::uint32_t>(std::lround(0.299 * red + 0.587 * green + 0.114 * blue));
    return level << 16 | level << 8 | level;
}

std::uint32_t Screened(std::uint32_t rgb, std::int32_t percent)
{
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const double ink = (255 - (rgb >> shift & 0xFF)) * percent / 100.0;
        result |= static_cast<std::uint32_t>(255 - std::lround(ink)) << shift;
    }
    return result;
}

std::optional<LineCap> CapOf(PlotEnd end)
{
    switch (end) {
    case PlotEnd::Butt:
        return LineCap::Butt;
    case PlotEnd::Square:
        return LineCap::Square;
    case PlotEnd::Round:
    case PlotEnd::Diamond:
        return LineCap::Round;
    case PlotEnd::Object:
        break;
    }
    return std::nullopt;
}

std::optional<LineJoin> JoinOf(PlotJoin join)
{
    switch (join) {
    case PlotJoin::Miter:
        return LineJoin::Miter;
    case PlotJoin::Bevel:
        return LineJoin::Bevel;
    case PlotJoin::Round:
    case PlotJoin::Diamond:
        return LineJoin::Round;
    case PlotJoin::Object:
        break;
    }
    return std::nullopt;
}

PlotPen PenOf(const PlotStyle& style, const PlotStyleTable& table)
{
    PlotPen pen;
    pen.color = style.color;
    pen.gray = style.gray;
    pen.screen = style.screen;
    if (style.lineweight > 0 && style.lineweight < table.lineweights.size()) {
        pen.width = table.lineweights[style.lineweight];
    }
    pen.cap = CapOf(style.end);
    pen.join = JoinOf(style.join);
    pen.fill = style.fill;
    if (style.linetype != kObjectLinetype) {
        pen.ownLinetype = true;
        pen.pattern = PlotLinetype(style.linetype, style.adaptive);
        pen.patternUnit = style.patternSize * (style.linetype < kFirstIsoLinetype ? table.linetypeScale : 1);
    }
    return pen;
}

/// A name of the table as UTF-8, letter case folded.
std::string Folded(const std::string& name, const std::string& codePage)
{
    if (base::IsUtf8(name)) {
        return base::FoldCase(name);
    }
    return base::FoldCase(drawing::TextDecoder(drawing::ConverterName(codePage), false).Decode(name));
}

bool HasDiamond(const PlotStyle& style)
{
    return style.end == PlotEnd::Diamond || style.join == PlotJoin::Diamond;
}

} // namespace

std::uint32_t PlotPen::ColorOf(std::uint32_t objectColor) const
{
    std::uint32_t rgb = color.value_or(objectColor & 0xFFFFFF);
    rgb = gray ? Gray(rgb) : rgb;
    rgb = screen != 100 ? Screened(rgb, screen) : rgb;
    return (objectColor & 0xFF000000) | rgb;
}

PlotPens::PlotPens() : m_pens(1) {}

PlotPens::PlotPens(const PlotStyleTable& table, const std::vector<drawing::PlotStyleName>& names,
                   const std::string& codePage)
    : m_byColor(table.byColor), m_hasDiamonds(std::any_of(table.styles.begin(), table.styles.end(), HasDiamond)),
      m_pens(1)
{
    if (m_byColor) {
        for (const PlotStyle& style : table.styles) {
            m_pens.push_back(PenOf(style, table));
        }
        return;
    }
    std::vector<std::string> folded;
    for (const PlotStyle& style : table.styles) {
        folded.push_back(Folded(style.name, codePage));
    }
    const auto find = [&](const std::string& name) -> const PlotStyle* {
        const auto at = std::find(folded.begin(), folded.end(), base::FoldCase(name));
        return at == folded.end() ? nullptr : &table.styles[static_cast<std::size_t>(at - folded.begin())];
    };
    if (const PlotStyle* normal = find("Normal")) {
        m_pens[0] = PenOf(*normal, table);
    }
    for (const drawing::PlotStyleName& name : names) {
        const PlotStyle* style = find(name.name);
        m_pens.push_back(style != nullptr ? PenOf(*style, table) : m_pens[0]);
        if (style == nullptr && !base::SameName(name.name, "Normal")) {
            m_missing.push_back(name.name);
        }
    }
}

} // namespace sm::render
