// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PlotStyleTable.h"

#include "base/text/Keywords.h"
#include "plotstyle/PlotStyleText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::size_t kColors = 255;
constexpr std::size_t kMostLineweights = 1000;

/// The values of one group, each with what stands for a missing one.
class Values {
public:
    Values(const PlotFileGroup& group, const std::string& path) : m_group(group), m_path(path) {}

    [[nodiscard]] std::string Text(std::string_view name) const
    {
        const auto* value = Find(name);
        return value == nullptr ? std::string() : value->text;
    }
    [[nodiscard]] bool Flag(std::string_view name, bool missing) const
    {
        const auto* value = Find(name);
        return value == nullptr ? missing : value->text == "TRUE" || value->text == "1";
    }
    [[nodiscard]] std::int64_t Integer(std::string_view name, std::int64_t missing) const
    {
        return Number<std::int64_t>(name, missing);
    }
    [[nodiscard]] double Real(std::string_view name, double missing) const
    {
        const double value = Number<double>(name, missing);
        return std::isfinite(value) ? value : missing;
    }

private:
    [[nodiscard]] const PlotFileGroup::Value* Find(std::string_view name) const
    {
        const auto found = m_group.values.find(name);
        return found == m_group.values.end() ? nullptr : &found->second;
    }
    template <class T> [[nodiscard]] T Number(std::string_view name, T missing) const
    {
        const auto* value = Find(name);
        if (value == nullptr) {
            return missing;
        }
        T number{};
        const char* end = value->text.data() + value->text.size();
        const auto read = std::from_chars(value->text.data(), end, number);
        if (read.ec != std::errc() || read.ptr != end) {
            FailPlotStyle(m_path, value->line,
                          std::string(name) + "=" + value->text.substr(0, 40) + " should be a number");
        }
        return number;
    }
    const PlotFileGroup& m_group;
    const std::string& m_path;
};

/// The value as one of the codes from `first` to `last`; what is none of them means the object's own.
template <class Code> Code CodeOf(std::int64_t value, Code first, Code last, Code object)
{
    const bool known = value >= static_cast<std::int64_t>(first) && value <= static_cast<std::int64_t>(last);
    return known ? static_cast<Code>(value) : object;
}

// The high byte tells how a colour was chosen, the others are red, green and blue. White under the mark of the colour
// index, and -1, stand for the object's colour. `mode_color` is the exact one where `color` is the nearest of the
// index.
std::optional<std::uint32_t> ColorOf(const Values& values)
{
    constexpr std::uint32_t kObject = 0xC3FFFFFF, kNone = 0xFFFFFFFF;
    const auto chosen = static_cast<std::uint32_t>(values.Integer("color", -1));
    if (chosen == kObject || chosen == kNone) {
        return std::nullopt;
    }
    const auto exact = static_cast<std::uint32_t>(values.Integer("mode_color", static_cast<std::int64_t>(chosen)));
    return (exact == kObject || exact == kNone ? chosen : exact) & 0xFFFFFF;
}

PlotStyle StyleOf(const PlotFileGroup& group, const std::string& path)
{
    constexpr std::int64_t kGrayPolicy = 2;
    const Values values(group, path);
    PlotStyle style;
    style.name = values.Text("name");
    style.color = ColorOf(values);
    style.gray = (values.Integer("color_policy", 0) & kGrayPolicy) != 0;
    style.screen = static_cast<std::int32_t>(std::clamp<std::int64_t>(values.Integer("screen", 100), 0, 100));
    if (const double size = values.Real("linepattern_size", 0.5); size > 0) {
        style.patternSize = size;
    }
    const std::int64_t linetype = values.Integer("linetype", kObjectLinetype);
    style.linetype =
        linetype >= 0 && linetype < kObjectLinetype ? static_cast<std::int32_t>(linetype) : kObjectLinetype;
    style.adaptive = values.Flag("adaptive_linetype", true);
    style.lineweight = static_cast<std::size_t>(std::clamp<std::int64_t>(values.Integer("lineweight", 0), 0, 1 << 20));
    style.fill = CodeOf(values.Integer("fill_style", 73), PlotFill::Solid, PlotFill::VerticalBars, PlotFill::Object);
    style.end = CodeOf(values.Integer("end_style", 4), PlotEnd::Butt, PlotEnd::Diamond, PlotEnd::Object);
    style.join = CodeOf(values.Integer("join_style", 5), PlotJoin::Miter, PlotJoin::Diamond, PlotJoin::Object);
    return style;
}

/// The number that a group or value is called by; nothing when it has another name or goes beyond `last`.
std::optional<std::size_t> NumberOf(const std::string& name, std::size_t last)
{
    std::size_t number = 0;
    const char* end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, number);
    return read.ec == std::errc() && read.ptr == end && number <= last ? std::optional(number) : std::nullopt;
}

void ReadStyles(const PlotFileGroup& styles, PlotStyleTable& table)
{
    if (table.byColor) {
        table.styles.resize(kColors);
    }
    for (const auto& [name, group] : styles.groups) {
        if (!table.byColor) {
            table.styles.push_back(StyleOf(group, table.path));
        } else if (const auto place = NumberOf(name, kColors - 1)) {
            table.styles[*place] = StyleOf(group, table.path);
        }
    }
}

void ReadLineweights(const PlotFileGroup& lineweights, PlotStyleTable& table)
{
    const Values values(lineweights, table.path);
    for (const auto& [name, value] : lineweights.values) {
        if (const auto place = NumberOf(name, kMostLineweights)) {
            table.lineweights.resize(std::max(table.lineweights.size(), *place + 1));
            table.lineweights[*place] = std::max(values.Real(name, 0), 0.0);
        }
    }
}

bool EndsWith(std::string_view path, std::string_view extension)
{
    return path.size() >= extension.size() && base::SameAscii(path.substr(path.size() - extension.size()), extension);
}

} // namespace

PlotStyleTable ParsePlotStyleTable(std::string_view bytes, const std::string& path)
{
    const PlotStyleContent content = UnpackPlotStyleFile(bytes, path);
    const PlotFileGroup& root = content.root;
    const Values values(root, path);
    PlotStyleTable table;
    table.path = path;
    table.byColor = content.hasHead ? content.byColor : values.Flag("aci_table_available", EndsWith(path, ".ctb"));
    if (const double scale = values.Real("scale_factor", 1); values.Flag("apply_factor", false) && scale > 0) {
        table.linetypeScale = scale;
    }
    const auto styles = root.groups.find("plot_style");
    if (styles == root.groups.end() || styles->second.groups.empty()) {
        FailPlotStyle(path, 0, "the file holds no plot styles");
    }
    ReadStyles(styles->second, table);
    if (const auto lineweights = root.groups.find("custom_lineweight_table"); lineweights != root.groups.end()) {
        ReadLineweights(lineweights->second, table);
    }
    return table;
}

} // namespace sm::render
