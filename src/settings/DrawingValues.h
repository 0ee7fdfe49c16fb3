// SPDX-License-Identifier: GPL-3.0-or-later
// Small tools that the readers and writers of the drawing records share.
#pragma once

#include "plugin/Present.h"
#include "settings/mdlUtilities.h"

#include <string>
#include <vector>

namespace sm {

/// A value that the host handed over, as the text it stands for.
inline std::string HostText(const AcadVariant& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&value))
        return NumberText(*number);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "1" : "0";
    return {};
}

/// Empty beyond the record's end.
inline std::string ValueAt(const std::vector<std::string>& values, std::size_t position)
{
    return position < values.size() ? values[position] : std::string();
}

inline std::int32_t IntegerAt(const std::vector<std::string>& values, std::size_t position, std::int32_t defaultValue)
{
    return RoundToInteger(NumberOrDefault(ValueAt(values, position), defaultValue));
}

} // namespace sm
