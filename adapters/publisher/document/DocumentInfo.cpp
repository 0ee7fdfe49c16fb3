// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/DocumentInfo.h"

#include "archive/ArchiveMarks.h"
#include "base/text/Utf8.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

struct DateParts {
    int year, month, day, hour, minute, second;
    std::int64_t offsetMinutes;
};

DateParts PartsOf(LocalDateTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    DateParts parts{static_cast<int>(date.year()),
                    static_cast<int>(static_cast<unsigned>(date.month())),
                    static_cast<int>(static_cast<unsigned>(date.day())),
                    static_cast<int>(clock.hours().count()),
                    static_cast<int>(clock.minutes().count()),
                    static_cast<int>(clock.seconds().count()),
                    0};
    std::tm local{};
    local.tm_year = parts.year - 1900;
    local.tm_mon = parts.month - 1;
    local.tm_mday = parts.day;
    local.tm_hour = parts.hour;
    local.tm_min = parts.minute;
    local.tm_sec = parts.second;
    local.tm_isdst = -1;
    const std::time_t universal = std::mktime(&local);
    if (universal != -1) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
        parts.offsetMinutes = (seconds - universal) / 60;
    }
    return parts;
}

std::string EscapeXml(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x20 && c != '\t' && c != '\n' && c != '\r') {
            continue; // XML knows no other control characters
        }
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

bool IsNameByte(char c, bool first)
{
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    return letter || (!first && ((c >= '0' && c <= '9') || c == '-' || c == '.'));
}

/// A key as an XML name: every byte that may not stand in one becomes U+2182 and its four-digit code, the way
/// custom properties are commonly carried into XMP.
std::string XmlName(const std::string& key)
{
    std::string name;
    for (std::size_t i = 0; i < key.size(); ++i) {
        name += IsNameByte(key[i], i == 0)
                    ? std::string(1, key[i])
                    : fmt::format("\u2182{:04X}", static_cast<unsigned>(static_cast<unsigned char>(key[i])));
    }
    return name;
}

std::string Element(const std::string& name, const std::string& content)
{
    return fmt::format("   <{0}>{1}</{0}>\n", name, content);
}

std::string PropertyElement(const std::string& key, const std::string& value)
{
    const std::string text = EscapeXml(value);
    const auto inLanguage = [&](const char* name) {
        return Element(name, fmt::format("<rdf:Alt><rdf:li xml:lang=\"x-default\">{}</rdf:li></rdf:Alt>", text));
    };
    if (key == "Title") {
        return inLanguage("dc:title");
    }
    if (key == "Subject") {
        return inLanguage("dc:description");
    }
    if (key == "Author") {
        return Element("dc:creator", fmt::format("<rdf:Seq><rdf:li>{}</rdf:li></rdf:Seq>", text));
    }
    if (key == "Creator") {
        return Element("xmp:CreatorTool", text);
    }
    if (key == "Keywords" || key == "Producer") {
        return Element("pdf:" + key, text);
    }
    return Element("pdfx:" + XmlName(key), text);
}

bool IsStandardKey(const std::string& key)
{
    constexpr std::string_view kKeys[] = {"Title", "Subject", "Author", "Creator", "Keywords", "Producer"};
    return std::ranges::find(kKeys, key) != std::end(kKeys);
}

constexpr const char* kHead = "<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
                              "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
                              " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                              "  <rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
                              " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\""
                              " xmlns:pdfx=\"http://ns.adobe.com/pdfx/1.3/\">\n"
                              "   <dc:format>application/pdf</dc:format>\n";
constexpr const char* kDescriptionEnd = "  </rdf:Description>\n";
constexpr const char* kPacketEnd = " </rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"r\"?>\n";

} // namespace

std::string PdfDate(LocalDateTime time)
{
    const DateParts p = PartsOf(time);
    const std::int64_t minutes = p.offsetMinutes < 0 ? -p.offsetMinutes : p.offsetMinutes;
    return fmt::format("D:{:04}{:02}{:02}{:02}{:02}{:02}{}{:02}'{:02}'", p.year, p.month, p.day, p.hour, p.minute,
                       p.second, p.offsetMinutes < 0 ? '-' : '+', minutes / 60, minutes % 60);
}

std::string XmpDate(LocalDateTime time)
{
    const DateParts p = PartsOf(time);
    const std::int64_t minutes = p.offsetMinutes < 0 ? -p.offsetMinutes : p.offsetMinutes;
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}{}{:02}:{:02}", p.year, p.month, p.day, p.hour, p.minute,
                       p.second, p.offsetMinutes < 0 ? '-' : '+', minutes / 60, minutes % 60);
}

void DocumentInfo::Set(const std::string& key, const std::string& value)
{
    const std::string name = base::ValidUtf8(key);
    const auto [place, isNew] = m_places.emplace(name, m_entries.size());
    if (name.empty() || (isNew && value.empty())) {
        m_places.erase(place);
    } else if (isNew) {
        m_entries.emplace_back(name, base::ValidUtf8(value));
    } else if (!value.empty()) {
        m_entries[place->second].second = base::ValidUtf8(value);
    } else {
        Remove(place->second);
    }
}

void DocumentInfo::Remove(std::size_t place)
{
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(place));
    m_places.clear();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        m_places.emplace(m_entries[i].first, i);
    }
}

void DocumentInfo::SetDates(LocalDateTime creation, LocalDateTime modification)
{
    m_creation = creation;
    m_modification = modification;
}

std::optional<std::string> DocumentInfo::Value(const std::string& key) const
{
    const auto found = m_places.find(key);
    return found == m_places.end() ? std::nullopt : std::optional(m_entries[found->second].second);
}

std::vector<std::pair<std::string, std::string>> DocumentInfo::Entries() const
{
    auto entries = m_entries;
    if (m_creation) {
        std::erase_if(entries, [](const auto& e) { return e.first == "CreationDate" || e.first == "ModDate"; });
        entries.emplace_back("CreationDate", PdfDate(*m_creation));
        entries.emplace_back("ModDate", PdfDate(*m_modification));
    }
    return entries;
}

std::string DocumentInfo::Xmp(Archive archive) const
{
    std::string packet = kHead;
    for (const auto& [key, value] : m_entries) {
        if (key != "CreationDate" && key != "ModDate" && (archive == Archive::None || IsStandardKey(key))) {
            packet += PropertyElement(key, value);
        }
    }
    if (m_creation) {
        packet += Element("xmp:CreateDate", XmpDate(*m_creation));
        packet += Element("xmp:ModifyDate", XmpDate(*m_modification));
    }
    return packet + kDescriptionEnd + ArchiveXmp(archive) + kPacketEnd;
}

} // namespace sm::publisher
