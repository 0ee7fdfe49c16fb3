// SPDX-License-Identifier: GPL-3.0-or-later
// What a font resource is read with, line by line, as the plotter writes it.
#pragma once

#include <charconv>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace sm::publisher {

struct FontLines {
    std::string_view rest; ///< not yet read

    std::string_view Line()
    {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        return line;
    }
    [[nodiscard]] std::string_view Peek() const { return rest.substr(0, rest.find('\n')); }
    bool Expect(std::string_view line) { return Line() == line; }
};

/// Removes `beginning` from `text`, if it is there.
inline bool Take(std::string_view& text, std::string_view beginning)
{
    const bool there = text.starts_with(beginning);
    text.remove_prefix(there ? beginning.size() : 0);
    return there;
}
/// Removes a number.
template <class Number> bool TakeNumber(std::string_view& text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

/// The codes of a font's glyphs by their names.
class GlyphCodes {
public:
    void Add(std::string_view name, std::uint8_t code) { m_codes.emplace(name, code); }
    /// Null when there is none.
    [[nodiscard]] const std::uint8_t* Find(std::string_view name) const
    {
        const auto found = m_codes.find(name);
        return found == m_codes.end() ? nullptr : &found->second;
    }

private:
    std::map<std::string, std::uint8_t, std::less<>> m_codes;
};

} // namespace sm::publisher
