#include "tags/NameTable.h"

#include "base/text/Utf8.h"

namespace sm::drawing {

namespace {

/// The capital of a letter, for the alphabets that drawings are named in.
char32_t Capital(char32_t c)
{
    if (c < 0x80)
        return c >= 'a' && c <= 'z' ? c - 0x20 : c;
    if ((c >= 0xE0 && c <= 0xFE && c != 0xF7) || (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F))
        return c - 0x20;
    if (c >= 0x450 && c <= 0x45F)
        return c - 0x50;
    const bool evenCapitals = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
    const bool oddCapitals = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (evenCapitals)
        return c & ~char32_t{1};
    return oddCapitals && c % 2 == 0 ? c - 1 : c;
}

} // namespace

std::string FoldName(std::string_view utf8)
{
    std::string folded;
    folded.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();)
        base::AppendUtf8(folded, Capital(base::ReadUtf8(utf8, at).value_or(0xFFFD)));
    return folded;
}

void NameTable::Add(std::string_view raw, std::string_view utf8, std::uint32_t index)
{
    m_raw.emplace(raw, index);
    m_folded.emplace(FoldName(utf8), index);
}

std::optional<std::uint32_t> NameTable::FindUtf8(std::string_view name) const
{
    const auto found = m_folded.find(FoldName(name));
    return found == m_folded.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::uint32_t> NameTable::Find(std::string_view raw, const TextDecoder& decoder) const
{
    const auto found = m_raw.find(raw);
    return found != m_raw.end() ? std::optional(found->second) : FindUtf8(decoder.Decode(raw));
}

} // namespace sm::drawing
