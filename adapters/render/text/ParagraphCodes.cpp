// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the argument of MTEXT's paragraph code, "xi-3,l4,t4,c8,qc,sm1.5,b1"; docs/fonts.md tells how its units were
// found.
#include "text/MTextParser.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace sm::render {

namespace {

class ParagraphReader {
public:
    ParagraphReader(std::string_view text, double height, ParagraphStyle& style)
        : m_text(text), m_height(height), m_unit(text.starts_with('x') ? height : 1), m_style(style)
    {
    }

    void Run()
    {
        while (!m_text.empty()) {
            const char key = Take();
            switch (key) {
            case 'i':
                m_style.firstIndent = Length();
                break;
            case 'l':
                m_style.leftIndent = std::max(0.0, Length());
                break;
            case 'r':
                m_style.rightIndent = std::max(0.0, Length());
                break;
            case 'b':
                m_style.before = std::max(0.0, Heights());
                break;
            case 'a':
                m_style.after = std::max(0.0, Heights());
                break;
            case 'q':
                ReadAlign();
                break;
            case 's':
                ReadSpacing();
                break;
            case 't':
                ReadTabs();
                break;
            default: // commas, blanks and the leading "x" say nothing
                break;
            }
        }
    }

private:
    char Take()
    {
        const char c = m_text.front();
        m_text.remove_prefix(1);
        return c;
    }

    [[nodiscard]] char Peek() const { return m_text.empty() ? '\0' : m_text.front(); }

    /// The number that comes next; none where there is an asterisk (the default again) or nothing.
    std::optional<double> Number()
    {
        while (Peek() == ' ' || Peek() == '+') {
            Take();
        }
        double value = 0;
        const auto [end, error] = std::from_chars(m_text.data(), m_text.data() + m_text.size(), value);
        if (error != std::errc{} || !std::isfinite(value)) {
            return std::nullopt;
        }
        m_text.remove_prefix(static_cast<std::size_t>(end - m_text.data()));
        return value;
    }

    double Length() { return Number().value_or(0) * m_unit; }
    double Heights() { return Number().value_or(0) * m_height; }

    void ReadAlign()
    {
        const char letter = m_text.empty() ? '\0' : Take();
        m_style.align = letter == 'l'   ? ParagraphAlign::Left
                        : letter == 'r' ? ParagraphAlign::Right
                        : letter == 'c' ? ParagraphAlign::Center
                        : letter == 'j' ? ParagraphAlign::Justified
                        : letter == 'd' ? ParagraphAlign::Distributed
                                        : ParagraphAlign::Default;
    }

    /// "m1.5" times the usual distance, "e2" exactly, "a2" at least so many heights, "*" as usual.
    void ReadSpacing()
    {
        const char letter = m_text.empty() ? '\0' : Take();
        const double value = Number().value_or(0);
        m_style.lineRule = value <= 0 || value > 1000 ? LineRule::Default
                           : letter == 'm'            ? LineRule::Multiple
                           : letter == 'e'            ? LineRule::Exact
                           : letter == 'a'            ? LineRule::AtLeast
                                                      : LineRule::Default;
        m_style.lineValue = letter == 'm' ? value : value * m_height;
    }

    /// "4,c8,r12,d16": up to the next item that is no tab stop.
    void ReadTabs()
    {
        m_style.tabs.clear();
        while (!m_text.empty()) {
            const char letter = Peek();
            const bool named = letter == 'c' || letter == 'r' || letter == 'd' || letter == 'l';
            const std::string_view before = m_text;
            if (named) {
                Take();
            }
            const std::optional<double> at = letter == 'l' ? std::nullopt : Number();
            if (!at) {
                m_text = before;
                break;
            }
            const TabKind kind = letter == 'c'   ? TabKind::Center
                                 : letter == 'r' ? TabKind::Right
                                 : letter == 'd' ? TabKind::Decimal
                                                 : TabKind::Left;
            if (*at > 0) {
                m_style.tabs.push_back({*at * m_unit, kind});
            }
            if (Peek() == ',') {
                Take();
            }
        }
        const auto earlier = [](const TabStop& a, const TabStop& b) { return a.at < b.at; };
        std::stable_sort(m_style.tabs.begin(), m_style.tabs.end(), earlier);
    }

    std::string_view m_text;
    double m_height;
    double m_unit; ///< of indents and tab stops: text heights where the code begins with "x", else drawing units
    ParagraphStyle& m_style;
};

} // namespace

void ReadParagraphCode(std::string_view argument, double height, ParagraphStyle& style)
{
    ParagraphReader(argument, height, style).Run();
}

} // namespace sm::render
