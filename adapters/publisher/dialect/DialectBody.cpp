// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPage.h"
#include "dialect/DialectSegment.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sm::publisher {

namespace {

enum class Sign : std::uint8_t { Other, Blank, Number, Letter };

/// What each byte is part of.
constexpr std::array<Sign, 256> kSigns = [] {
    std::array<Sign, 256> signs{};
    for (const char c : {' ', '\n'}) {
        signs[static_cast<unsigned char>(c)] = Sign::Blank;
    }
    for (const char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '.', '-'}) {
        signs[static_cast<unsigned char>(c)] = Sign::Number;
    }
    for (int c = 'A'; c <= 'Z'; ++c) {
        signs[static_cast<std::size_t>(c)] = signs[static_cast<std::size_t>(c) + 32] = Sign::Letter;
    }
    signs['*'] = Sign::Letter;
    return signs;
}();

Sign SignOf(char c)
{
    return kSigns[static_cast<unsigned char>(c)];
}

constexpr std::uint32_t Code(char first, char second = 0)
{
    return static_cast<std::uint32_t>(first) << 8 | static_cast<std::uint32_t>(second);
}

constexpr std::uint32_t kBeginLayer = Code('B', 'D'), kEndLayer = Code('E', 'M'); ///< BDC and EMC

/// Where a text block stands: its operators come once each and in this order.
enum class TextStep : std::uint8_t { None, Begun, Hidden, Font, Placed, Turned, Shown };

/// Walks the tokens of a body.
class BodyChecker {
public:
    BodyChecker(std::string_view body, std::size_t pictures)
        : m_at(body.data()), m_end(body.data() + body.size()), m_pictures(pictures)
    {
    }

    std::optional<BodyFacts> Check()
    {
        while (m_at != m_end) {
            const Sign sign = SignOf(*m_at);
            if (sign == Sign::Blank) {
                ++m_at;
            } else if (!(sign == Sign::Number && m_operands == 0 && TakesSegments() && PassSegment()) && !Token()) {
                return std::nullopt;
            }
        }
        const bool complete = m_operands == 0 && m_step == TextStep::None && !m_mustRestore;
        return complete ? std::optional(m_facts) : std::nullopt;
    }

private:
    [[nodiscard]] bool TakesSegments() const { return m_step == TextStep::None && !m_mustRestore && m_names == 0; }

    bool PassSegment()
    {
        const char* const past = PastSegment(m_at, m_end);
        if (past == m_at) {
            return false;
        }
        m_last = Code(past[-2]);
        m_at = past;
        return true;
    }

    bool Token()
    {
        switch (SignOf(*m_at)) {
        case Sign::Number:
            Skip(Sign::Number);
            ++m_operands;
            return true;
        case Sign::Letter:
            return Operator();
        default:
            ++m_operands;
            return *m_at == '/' ? Name() : *m_at == '[' ? Array() : String();
        }
    }

    void Skip(Sign sign)
    {
        while (m_at != m_end && SignOf(*m_at) == sign) {
            ++m_at;
        }
    }

    bool Operator()
    {
        const char* begin = m_at;
        Skip(Sign::Letter);
        const std::ptrdiff_t length = m_at - begin;
        const std::uint32_t code = Code(begin[0], length > 1 ? begin[1] : '\0');
        const bool marks = code == kBeginLayer || code == kEndLayer; // the only ones of three letters
        if (length != (marks ? 3 : std::min<std::ptrdiff_t>(length, 2)) || (marks && begin[2] != 'C') ||
            (m_mustRestore && code != Code('Q'))) {
            return false;
        }
        const bool named = m_names == NamesOf(code);
        const bool right = m_step == TextStep::None ? OutsideText(code) : InText(code);
        m_operands = 0;
        m_names = 0;
        m_last = code;
        return right && named;
    }

    /// Operators of lines, fills and clips.
    bool OutsideText(std::uint32_t code)
    {
        switch (code) {
        case Code('m'):
        case Code('l'):
            return m_operands == 2;
        case Code('c'):
        case Code('c', 'm'):
            return m_operands == 6;
        case Code('R', 'G'):
        case Code('r', 'g'):
            return m_operands == 3;
        case Code('w'):
        case Code('J'):
        case Code('j'):
        case Code('M'):
        case Code('g'):
        case Code('G'):
        case Code('D', 'o'):
        case Code('g', 's'):
            return m_operands == 1;
        case kBeginLayer:
            m_facts.highestLayer = std::max(m_facts.highestLayer, ++m_facts.layerDepth);
            return m_operands == 2;
        case kEndLayer:
            m_facts.lowestLayer = std::min(m_facts.lowestLayer, --m_facts.layerDepth);
            return m_operands == 0;
        case Code('B', 'T'):
            m_step = TextStep::Begun;
            m_beforeText = m_last;
            return m_operands == 0;
        case Code('q'):
            ++m_facts.depth;
            return m_operands == 0;
        case Code('Q'):
            m_mustRestore = false;
            m_facts.lowest = std::min(m_facts.lowest, --m_facts.depth);
            return m_operands == 0;
        case Code('h'):
        case Code('S'):
        case Code('f'):
        case Code('f', '*'):
        case Code('W'):
        case Code('W', '*'):
        case Code('n'):
            return m_operands == 0;
        default:
            return false;
        }
    }

    bool Step(std::uint32_t operands, bool inOrder, TextStep next)
    {
        m_step = next;
        return inOrder && m_operands == operands;
    }

    bool InText(std::uint32_t code)
    {
        const TextStep now = m_step;
        switch (code) {
        case Code('T', 'r'): // lasts to the next Q, which has to follow the text
            m_hidden = true;
            return Step(1, now == TextStep::Begun && m_beforeText == Code('q'), TextStep::Hidden);
        case Code('T', 'f'):
            return Step(2, now == TextStep::Begun || now == TextStep::Hidden, TextStep::Font);
        case Code('T', 'd'):
            return Step(2, now == TextStep::Font, TextStep::Placed);
        case Code('T', 'm'):
            return Step(6, now == TextStep::Font, TextStep::Turned);
        case Code('T', 'j'):
            return Step(1, now == TextStep::Placed || now == TextStep::Turned, TextStep::Shown);
        case Code('T', 'J'):
            return Step(1, now == TextStep::Turned, TextStep::Shown);
        case Code('E', 'T'):
            m_mustRestore = m_hidden;
            m_hidden = false;
            return Step(0, now == TextStep::Shown, TextStep::None);
        default:
            return false;
        }
    }

    /// What kinds of names the operands of an operator are.
    static std::uint32_t NamesOf(std::uint32_t code)
    {
        switch (code) {
        case Code('T', 'f'):
            return 'F';
        case Code('D', 'o'):
            return 'I';
        case Code('g', 's'):
            return 'A';
        case kBeginLayer:
            return Code('O', 'L');
        default:
            return 0;
        }
    }

    /// "/F12" (a font), "/I3" (one of the page's pictures), "/L3" (a layer), "/A128" (an opacity), "/OC".
    bool Name()
    {
        const char kind = m_end - m_at > 1 ? m_at[1] : ' ';
        m_names = m_names << 8 | static_cast<unsigned char>(kind);
        m_at += m_end - m_at > 1 ? 2 : 1;
        if (kind == 'O') {
            return m_at != m_end && *m_at++ == 'C';
        }
        std::size_t number = 0;
        const auto [end, error] = std::from_chars(m_at, m_end, number);
        if (error != std::errc() || end - m_at >= 6) {
            return false;
        }
        const bool there = m_operands == 1 && number > 0 && number <= m_pictures && *m_at != '0';
        m_at = end;
        return kind == 'I' ? there : Uses(kind, static_cast<std::uint32_t>(number));
    }

    bool Uses(char kind, std::uint32_t number)
    {
        if (kind == 'L') {
            m_facts.layers.insert(number);
        } else if (kind == 'A') {
            m_facts.opacities.insert(number);
        }
        return kind == 'F' || kind == 'L' || (kind == 'A' && number <= 255);
    }

    /// "(abc)", plain characters without a backslash; or "<0041>".
    bool String()
    {
        const char open = *m_at++;
        const char close = open == '(' ? ')' : '>';
        if (open != '(' && open != '<') {
            return false;
        }
        for (; m_at != m_end && *m_at != close; ++m_at) {
            const char c = *m_at;
            const bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
            const bool plain = c >= 32 && c < 127 && c != '(' && c != '\\';
            if (open == '<' ? !hex : !plain) {
                return false;
            }
        }
        return m_at != m_end && *m_at++ == close;
    }

    /// Strings and numbers, no array inside.
    bool Array()
    {
        for (++m_at; m_at != m_end;) {
            if (*m_at == ']') {
                ++m_at;
                return true;
            }
            if (const Sign sign = SignOf(*m_at); sign == Sign::Blank || sign == Sign::Number) {
                Skip(sign);
            } else if (!String()) {
                return false;
            }
        }
        return false;
    }

    const char* m_at;
    const char* m_end;
    std::size_t m_pictures;
    BodyFacts m_facts;
    std::uint32_t m_names = 0; ///< first letters of the operands that are names
    std::uint32_t m_operands = 0;
    std::uint32_t m_last = 0, m_beforeText = 0; ///< operators
    TextStep m_step = TextStep::None;
    bool m_hidden = false, m_mustRestore = false;
};

} // namespace

std::optional<BodyFacts> CheckDialectBody(std::string_view body, std::size_t pictures)
{
    return BodyChecker(body, pictures).Check();
}

std::vector<std::string_view> CutDialectBody(std::string_view body, std::size_t size)
{
    constexpr std::string_view kStroke = "\nS\n"; // no text block holds it
    std::vector<std::string_view> parts;
    while (body.size() > size) {
        const std::size_t at = body.find(kStroke, size);
        if (at == std::string_view::npos) {
            break;
        }
        parts.push_back(body.substr(0, at + kStroke.size()));
        body.remove_prefix(parts.back().size());
    }
    if (!body.empty()) {
        parts.push_back(body);
    }
    return parts;
}

} // namespace sm::publisher
