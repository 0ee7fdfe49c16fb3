// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/NumberFields.h"

#include "ports/PlotNumbers.h"
#include "settings/mdlUtilities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace sm {
namespace {

constexpr int kSureDigits = 15;
/// A double has at most 309 digits before the point, and no more places than these are asked for behind it.
constexpr int kMostPlaces = 340;

/// `value`, not negative, with enough places to show `kSureDigits` digits and at least one more than `decimals`.
std::string LongText(double value, int decimals)
{
    const int before = value < 1 ? 0 : static_cast<int>(std::floor(std::log10(value))) + 1;
    const int leadingZeros = value > 0 && value < 1 ? -static_cast<int>(std::floor(std::log10(value))) - 1 : 0;
    const int places = std::clamp(kSureDigits - before + leadingZeros, decimals + 1, kMostPlaces);
    std::array<char, 700> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, places).ptr;
    return {text.data(), end};
}

/// Adds one to the last digit of a decimal text.
std::string CountedUp(std::string text)
{
    for (std::size_t at = text.size(); at-- > 0;) {
        if (text[at] == '.')
            continue;
        if (text[at] != '9') {
            ++text[at];
            return text;
        }
        text[at] = '0';
    }
    return "1" + text;
}

} // namespace

std::string FixedText(double value, int decimals)
{
    if (!std::isfinite(value))
        value = 0;
    const std::string longText = LongText(std::fabs(value), decimals);
    const std::size_t end = longText.find('.') + 1 + static_cast<std::size_t>(decimals);
    std::string text = longText.substr(0, end);
    if (longText[end] >= '5')
        text = CountedUp(text);
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return value < 0 && !isZero ? "-" + text : text;
}

std::string PointText(double value)
{
    return FixedText(value, 2);
}

void FormatUnitField(Form& form, const std::string& textBox, const std::string& unitsCombo)
{
    const int decimals = form.Text(unitsCombo) == NameOf(kPaperUnits, kPaperMillimeters) ? 1 : 2;
    form.SetText(textBox, FixedText(Val(form.Text(textBox)), decimals));
}

void FormatPointField(Form& form, const std::string& textBox)
{
    form.SetText(textBox, PointText(Val(form.Text(textBox))));
}

void FormatOnLeaving(Form& form, const std::string& textBox, const Form::Handler& format)
{
    form.On(textBox, FormEvent::LostFocus, format);
    form.On(textBox, FormEvent::Enter, format);
}

void MakePointFields(Form& form, const std::vector<std::string>& textBoxes)
{
    for (const std::string& textBox : textBoxes)
        FormatOnLeaving(form, textBox, [&form, textBox] { FormatPointField(form, textBox); });
}

} // namespace sm
