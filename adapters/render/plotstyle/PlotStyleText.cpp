// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotstyle/PlotStyleText.h"

#include "render/PlotStyleTable.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::size_t kDeepest = 8;
constexpr std::size_t kMostLines = 200'000;

class TextParser {
public:
    TextParser(std::string_view text, const std::string& path) : m_rest(text), m_path(path) {}

    PlotStyleGroup Parse()
    {
        PlotStyleGroup root;
        ReadGroup(root, 0);
        return root;
    }

private:
    /// The next line that holds something, without blanks around it; false at the end.
    bool NextLine(std::string_view& line)
    {
        while (!m_rest.empty()) {
            line = m_rest.substr(0, m_rest.find('\n'));
            m_rest.remove_prefix(std::min(line.size() + 1, m_rest.size()));
            if (++m_line > static_cast<std::int32_t>(kMostLines)) {
                FailPlotStyle(m_path, m_line, "it holds too much for a plot style table");
            }
            line.remove_prefix(std::min(line.find_first_not_of(" \t\r"), line.size()));
            while (!line.empty() && (line.back() == '\r' || line.back() == '\0')) {
                line.remove_suffix(1);
            }
            if (!line.empty()) {
                return true;
            }
        }
        return false;
    }

    void ReadGroup(PlotStyleGroup& group, std::size_t depth)
    {
        const std::int32_t begin = m_line;
        PlotStyleGroup::Value* last = nullptr;
        for (std::string_view line; NextLine(line);) {
            if (line == "}") {
                if (depth == 0) {
                    FailPlotStyle(m_path, m_line, "a group ends that never began");
                }
                return;
            }
            const std::size_t equals = line.find('=');
            if (equals != std::string_view::npos) {
                std::string_view text = line.substr(equals + 1);
                text.remove_prefix(text.starts_with('"') ? 1 : 0);
                last = &group.values[std::string(line.substr(0, equals))];
                *last = {std::string(text), m_line};
            } else if (line.ends_with('{') && depth < kDeepest) {
                line.remove_suffix(1);
                PlotStyleGroup& inner = group.groups[std::string(line)];
                inner = {};
                ReadGroup(inner, depth + 1);
            } else if (last != nullptr) { // descriptions may have several lines
                last->text.append("\n").append(line);
            } else {
                FailPlotStyle(m_path, m_line, "this is no line of a plot style table");
            }
        }
        if (depth != 0) {
            FailPlotStyle(m_path, begin, "a group begins that never ends");
        }
    }

    std::string_view m_rest;
    const std::string& m_path;
    std::int32_t m_line = 0;
};

} // namespace

void FailPlotStyle(const std::string& path, std::int32_t line, const std::string& what)
{
    const std::string place = line > 0 ? ", line " + std::to_string(line) : std::string();
    std::string oneLine = what; // values that it quotes may have several lines
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    throw PlotStyleError(path + place + ": " + oneLine + ". Save the plot style table again or choose another one.");
}

PlotStyleGroup ParsePlotStyleText(std::string_view text, const std::string& path)
{
    return TextParser(text, path).Parse();
}

} // namespace sm::render
