// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/PlotFileText.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::size_t kDeepest = 8;
constexpr std::size_t kMostLines = 200'000;

class TextParser {
public:
    TextParser(std::string_view text, const std::string& kind) : m_rest(text), m_kind(kind) {}

    PlotFileGroup Parse()
    {
        PlotFileGroup root;
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
                throw PlotFileFault(m_line, "it holds too much for " + m_kind);
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

    void ReadGroup(PlotFileGroup& group, std::size_t depth)
    {
        const std::int32_t begin = m_line;
        PlotFileGroup::Value* last = nullptr;
        for (std::string_view line; NextLine(line);) {
            if (line == "}") {
                if (depth == 0) {
                    throw PlotFileFault(m_line, "a group ends that never began");
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
                PlotFileGroup& inner = group.groups[std::string(line)];
                inner = {};
                ReadGroup(inner, depth + 1);
            } else if (last != nullptr) { // descriptions may have several lines
                last->text.append("\n").append(line);
            } else {
                throw PlotFileFault(m_line, "this is no line of " + m_kind);
            }
        }
        if (depth != 0) {
            throw PlotFileFault(begin, "a group begins that never ends");
        }
    }

    std::string_view m_rest;
    const std::string& m_kind;
    std::int32_t m_line = 0;
};

} // namespace

PlotFileGroup ParsePlotFileText(std::string_view text, const std::string& kind)
{
    return TextParser(text, kind).Parse();
}

} // namespace sm::render
