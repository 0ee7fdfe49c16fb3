// SPDX-License-Identifier: GPL-3.0-or-later
#include "objects/ExtendedData.h"

#include "answers/HostText.h"
#include "ports/HostError.h"

#include <charconv>

namespace sm::cadhost {
namespace {

constexpr std::int16_t kApplicationName = 1001, kFirstReal = 1010, kFirstInteger = 1060, kLast = 1071;

template <class Number> Number ReadNumber(std::string_view text)
{
    Number value = 0;
    text = Trimmed(text);
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

AcadVariant ValueOf(const drawing::XDataItem& item)
{
    if (item.code < kFirstReal || item.code > kLast)
        return item.text;
    if (item.code < kFirstInteger)
        return ReadNumber<double>(item.text);
    return ReadNumber<std::int32_t>(item.text);
}

struct TextOf {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(std::int32_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return NumberText(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(bool value) const { return value ? "1" : "0"; }
    std::string operator()(const AcadPoint& value) const
    {
        return NumberText(value.x) + "," + NumberText(value.y) + "," + NumberText(value.z);
    }
};

} // namespace

AcadXData ToAutomation(const std::vector<drawing::XDataItem>& items)
{
    AcadXData data;
    for (const drawing::XDataItem& item : items) {
        data.codes.push_back(item.code);
        data.values.push_back(ValueOf(item));
    }
    return data;
}

std::vector<drawing::XDataItem> FromAutomation(const AcadXData& data)
{
    if (data.codes.size() != data.values.size())
        throw HostError("SetXData: there are " + std::to_string(data.codes.size()) + " codes and " +
                        std::to_string(data.values.size()) + " values");
    if (data.codes.empty() || data.codes.front() != kApplicationName ||
        !std::holds_alternative<std::string>(data.values.front()) || std::get<std::string>(data.values.front()).empty())
        throw HostError("SetXData: a record begins with the name of its application");
    std::vector<drawing::XDataItem> items;
    for (std::size_t i = 0; i < data.codes.size(); ++i)
        items.push_back({data.codes[i], std::visit(TextOf{}, data.values[i])});
    return items;
}

} // namespace sm::cadhost
