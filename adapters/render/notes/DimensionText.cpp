// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/DimensionText.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

using drawing::DimStyle;

std::string Replaced(std::string text, const std::string& what, const std::string& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

std::string NumberText(const Measure& measure, const DimStyle& style)
{
    return measure.isAngle ? AngleText(measure.value, style) : LengthText(measure.value, style);
}

std::string Stacked(const std::string& above, const std::string& below, const DimStyle& style)
{
    // Fractions inside would begin stacks of their own.
    const auto plain = [](std::string text) { return Replaced(Replaced(std::move(text), "/", "\\/"), "#", "\\#"); };
    return "{\\H" + FixedText(style.toleranceFactor, 3) + "x;\\S" + plain(above) + "^ " + plain(below) + ";}";
}

/// The largest over the smallest length or angle. Neither scale nor rounding counts for tolerances.
std::string Limits(const Measure& measure, const DimStyle& style)
{
    DimStyle exact = style;
    constexpr std::int32_t kInLine = 2;
    exact.fraction = kInLine;
    double value = measure.value;
    if (!measure.isAngle) {
        value = ShownLength(value, style);
        exact.lengthFactor = 1;
        exact.rounding = 0;
    }
    return Stacked(NumberText({value + style.plus, measure.isAngle}, exact),
                   NumberText({std::max(0.0, value - style.minus), measure.isAngle}, exact), style);
}

std::string ToleranceNumber(double value, const Measure& measure, const DimStyle& style)
{
    DimStyle look = style;
    look.decimals = look.angleDecimals = style.toleranceDecimals;
    look.zeros = look.angleZeros = style.toleranceZeros;
    look.lengthFactor = 1;
    look.rounding = 0;
    constexpr std::int32_t kInLine = 2;
    look.fraction = kInLine;
    return NumberText({std::abs(value), measure.isAngle}, look);
}

/// A measurement with its tolerance behind it, or its limits.
std::string WithTolerance(const Measure& measure, const DimStyle& style)
{
    const bool given = style.plus != 0 || style.minus != 0;
    if (style.limits != 0 && given) {
        return Limits(measure, style);
    }
    std::string measured = NumberText(measure, style);
    if (style.tolerances == 0 || !given) {
        return measured;
    }
    const auto number = [&](double value) { return ToleranceNumber(value, measure, style); };
    if (style.plus == style.minus) {
        return measured + "%%p" + number(style.plus);
    }
    const auto withSign = [&](double value) { return number(value).insert(0, 1, value < 0 ? '-' : '+'); };
    return measured + Stacked(withSign(style.plus), withSign(-style.minus), style);
}

/// `form` with the text in the place of `mark`; a form without one is a suffix behind prefix and text.
std::string Formed(const std::string& form, const std::string& mark, const std::string& prefix, const std::string& text)
{
    return form.find(mark) != std::string::npos ? Replaced(form, mark, text) : prefix + text + form;
}

/// The style as it stands for the second unit.
DimStyle AlternateStyle(const DimStyle& style)
{
    constexpr std::int32_t kArchitecturalInLine = 6, kFractionalInLine = 7, kSystem = 8, kInLine = 2;
    DimStyle other = style;
    other.lengthFactor *= style.alternateFactor;
    other.rounding = style.alternateRounding;
    other.decimals = style.alternateDecimals;
    other.zeros = style.alternateZeros;
    other.toleranceDecimals = style.alternateToleranceDecimals;
    other.toleranceZeros = style.alternateToleranceZeros;
    other.plus *= style.alternateFactor;
    other.minus *= style.alternateFactor;
    const bool inLine = style.alternateUnit == kArchitecturalInLine || style.alternateUnit == kFractionalInLine;
    other.lengthUnit = style.alternateUnit - (inLine ? 2 : style.alternateUnit == kSystem ? 2 : 0);
    other.fraction = inLine ? kInLine : style.fraction == kInLine ? 0 : style.fraction;
    return other;
}

/// The length in the second unit, in brackets.
std::string AlternateText(const Measure& measure, const std::string& prefix, const DimStyle& style)
{
    return "[" + Formed(style.alternateForm, "[]", prefix, WithTolerance(measure, AlternateStyle(style))) + "]";
}

} // namespace

std::string DimensionText(const std::string& own, const Measure& measure, const std::string& prefix,
                          const DimStyle& style)
{
    if (!own.empty() && own.find_first_not_of(' ') == std::string::npos) {
        return {};
    }
    // Some writers put the prefix in front of "<>" themselves.
    const bool twice = !prefix.empty() && own.find(prefix + "<>") != std::string::npos;
    std::string text = Formed(style.form, "<>", twice ? "" : prefix, WithTolerance(measure, style));
    const bool alternates = !measure.isAngle && style.alternateFactor > 0;
    const std::string other = alternates ? AlternateText(measure, prefix, style) : "";
    if (alternates && style.alternates != 0 && own.find("[]") == std::string::npos) {
        text += " " + other;
    }
    text = own.empty() ? text : Replaced(Replaced(own, "[]", other), "<>", text);
    return Replaced(std::move(text), "\\X", "\\P");
}

} // namespace sm::render
