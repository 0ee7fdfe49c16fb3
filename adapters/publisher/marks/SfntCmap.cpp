// TrueType tables as the OpenType documents describe them: "Font file", "cmap", "head", "hhea" and "hmtx".
#include "marks/SfntCmap.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace sm::publisher {

namespace {

using Tables = std::map<std::string, std::string>;

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

std::int32_t Signed16(std::string_view bytes, std::size_t at)
{
    return static_cast<std::int16_t>(Number(bytes, at, 2));
}

void Put(std::string& out, std::uint32_t value, std::size_t size)
{
    for (std::size_t i = size; i-- > 0;) {
        out += static_cast<char>(value >> (8 * i) & 0xFF);
    }
}

std::optional<Tables> Split(const std::string& sfnt)
{
    const std::size_t count = Number(sfnt, 4, 2);
    Tables tables;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = 12 + 16 * i;
        const std::size_t offset = Number(sfnt, entry + 8, 4), length = Number(sfnt, entry + 12, 4);
        if (entry + 16 > sfnt.size() || offset > sfnt.size() || length > sfnt.size() - offset) {
            return std::nullopt;
        }
        tables[sfnt.substr(entry, 4)] = sfnt.substr(offset, length);
    }
    const bool whole = tables.contains("head") && tables["head"].size() >= 54 && tables.contains("hhea") &&
                       tables["hhea"].size() >= 36 && tables.contains("hmtx") && tables.contains("glyf");
    return whole ? std::optional(std::move(tables)) : std::nullopt;
}

/// A cmap with one byte encoding table for platform 1, encoding 0.
std::string CodeMap(const std::map<std::uint8_t, std::uint16_t>& glyphs)
{
    std::string table;
    for (const std::uint32_t word : {0U, 1U, 1U, 0U}) {
        Put(table, word, 2);
    }
    Put(table, 12, 4);
    Put(table, 6, 2); // format 6: trimmed table
    Put(table, 10 + 2 * 256, 2);
    Put(table, 0, 2);
    Put(table, 0, 2);
    Put(table, 256, 2);
    for (std::uint32_t code = 0; code < 256; ++code) {
        const auto found = glyphs.find(static_cast<std::uint8_t>(code));
        Put(table, found == glyphs.end() ? 0 : found->second, 2);
    }
    return table;
}

std::uint32_t Checksum(std::string_view bytes)
{
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        sum += Number(bytes, at, 4) << (at + 4 > bytes.size() ? 8 * (at + 4 - bytes.size()) : 0);
    }
    return sum;
}

std::string Join(const Tables& tables)
{
    std::uint32_t power = 1, log = 0;
    while (power * 2 <= tables.size()) {
        power *= 2;
        ++log;
    }
    const auto count = static_cast<std::uint32_t>(tables.size());
    std::string head, body;
    Put(head, 0x00010000, 4);
    for (const std::uint32_t word : {count, power * 16, log, count * 16 - power * 16}) {
        Put(head, word, 2);
    }
    for (const auto& [tag, bytes] : tables) {
        head += tag;
        Put(head, Checksum(bytes), 4);
        Put(head, static_cast<std::uint32_t>(12 + 16 * tables.size() + body.size()), 4);
        Put(head, static_cast<std::uint32_t>(bytes.size()), 4);
        body += bytes;
        body.append((4 - body.size() % 4) % 4, '\0');
    }
    return head + body;
}

} // namespace

std::optional<SfntFacts> AddCodeMap(const std::string& sfnt, const std::map<std::uint8_t, std::uint16_t>& glyphs)
{
    auto tables = Split(sfnt);
    if (!tables) {
        return std::nullopt;
    }
    const std::string &head = (*tables)["head"], &hhea = (*tables)["hhea"], &hmtx = (*tables)["hmtx"];
    const double scale = 1000.0 / std::max<std::uint32_t>(1, Number(head, 18, 2));
    const auto thousandths = [&](std::int32_t value) { return static_cast<std::int32_t>(value * scale + 0.5); };
    SfntFacts facts;
    const std::size_t metrics = std::max<std::uint32_t>(1, Number(hhea, 34, 2));
    for (const auto& [code, glyph] : glyphs) {
        facts.widths[code] =
            thousandths(static_cast<std::int32_t>(Number(hmtx, 4 * std::min<std::size_t>(glyph, metrics - 1), 2)));
    }
    facts.ascent = thousandths(Signed16(hhea, 4));
    facts.descent = thousandths(Signed16(hhea, 6));
    for (std::size_t i = 0; i < 4; ++i) {
        facts.box[i] = thousandths(Signed16(head, 36 + 2 * i));
    }
    (*tables)["cmap"] = CodeMap(glyphs);
    facts.bytes = Join(*tables);
    return facts;
}

} // namespace sm::publisher
