// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/StampWriter.h"

#include "pdf/PdfNumbers.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

constexpr int kUsualSize = 12;
constexpr int kLargestSize = 10000;

std::string ColorOperands(std::int32_t color)
{
    const auto part = [color](int shift) {
        return NumberText((static_cast<std::uint32_t>(color) >> shift & 0xFFU) / 255.0);
    };
    return fmt::format("{} {} {}", part(0), part(8), part(16));
}

int UsableSize(const TextStampMark& mark, const SheetPage& sheet, const Note& note)
{
    if (mark.fontSize >= 1 && mark.fontSize <= kLargestSize) {
        return mark.fontSize;
    }
    note(fmt::format("Page {}: the text stamp's font size {} can't be used; it is {} points", sheet.number,
                     mark.fontSize, kUsualSize));
    return kUsualSize;
}

/// A dictionary of the page's resources that belongs to this page alone.
Object OwnDictionary(Object holder, const std::string& key)
{
    auto present = holder.getKey(key);
    auto own = present.isDictionary() ? present.shallowCopy() : Object::newDictionary();
    holder.replaceKey(key, own);
    return own;
}

void Enter(const Object& resources, const std::string& kind, const std::map<std::string, Object>& used)
{
    Object own = used.empty() ? Object::newNull() : OwnDictionary(resources, kind);
    for (const auto& [key, object] : used) {
        own.replaceKey(key, object);
    }
}

} // namespace

Object StampWriter::FontObject(const StampFont& font)
{
    const std::string name(font.name);
    const auto known = m_standard.find(name);
    if (known != m_standard.end()) {
        return known->second;
    }
    auto dictionary = Object::newDictionary();
    dictionary.replaceKey("/Type", Object::newName("/Font"));
    dictionary.replaceKey("/Subtype", Object::newName("/Type1"));
    dictionary.replaceKey("/BaseFont", Object::newName("/" + name));
    if (font.latin) {
        dictionary.replaceKey("/Encoding", Object::newName("/WinAnsiEncoding"));
    }
    return m_standard.emplace(name, m_pdf.makeIndirectObject(dictionary)).first->second;
}

/// No interpreter names its fonts like this, so that the name is free on every page.
std::string StampWriter::FontKey(const StampFont& font) const
{
    std::string key = "/SmStamp";
    std::ranges::copy_if(font.name, std::back_inserter(key), [](char c) { return c != '-'; });
    return key;
}

void StampWriter::Add(const TextStampMark& mark, const SheetPage& sheet)
{
    const StampFont font = FindStampFont(mark.fontName);
    if (!font.known) {
        m_note(fmt::format("Page {}: the text stamp's font \"{}\" isn't a standard font; Helvetica takes its place",
                           sheet.number, mark.fontName));
    }
    const StampText text = EncodeStampText(mark.text, font);
    std::string reason;
    const bool wanted = !text.complete || mark.isEmbedded || m_fonts == StampFonts::Embedded;
    const auto form = wanted ? m_forms.Form(mark.text, font, mark.color, reason) : std::nullopt;
    if (!text.complete && !form) {
        m_note(
            fmt::format("Page {}: the text stamp \"{}\" has characters that {} lacks; stand-ins are shown for them{}",
                        sheet.number, mark.text, font.name, reason.empty() ? "" : fmt::format(" ({})", reason)));
    }
    const double size = UsableSize(mark, sheet, m_note) / sheet.unit;
    const double shift = mark.justification == 1 ? 0.5 : mark.justification == 2 ? 1 : 0;
    const Place place{mark.x / sheet.unit, mark.y / sheet.unit, size, shift};
    m_content += form ? InForm(*form, place) : InStandardFont(mark, font, text, place);
}

std::string StampWriter::InForm(const StampForm& form, const Place& place)
{
    m_usedForms.emplace(form.key, form.object);
    const std::string size = NumberText(place.size);
    return fmt::format("q {} 0 0 {} {} {} cm {} Do Q\n", size, size,
                       NumberText(place.x - place.shift * form.width * place.size), NumberText(place.y), form.key);
}

std::string StampWriter::InStandardFont(const TextStampMark& mark, const StampFont& font, const StampText& text,
                                        const Place& place)
{
    const std::string key = FontKey(font);
    m_used.emplace(key, FontObject(font));
    const std::string shown =
        fmt::format("BT {} {} Tf {} rg {} {} Td {} Tj ET\n", key, NumberText(place.size), ColorOperands(mark.color),
                    NumberText(place.x - place.shift * text.width * place.size), NumberText(place.y),
                    Object::newString(text.codes).unparse());
    return text.complete ? shown
                         : fmt::format("/Span << /ActualText {} >> BDC {}EMC\n",
                                       Object::newUnicodeString(mark.text).unparse(), shown);
}

void StampWriter::FinishPage(const SheetPage& sheet)
{
    if (m_content.empty()) {
        return;
    }
    Object page = sheet.page;
    Object resources = OwnDictionary(page, "/Resources");
    Enter(resources, "/Font", m_used);
    Enter(resources, "/XObject", m_usedForms);
    page.addPageContents(m_pdf.newStream("q\n"), true);
    page.addPageContents(m_pdf.newStream("\nQ q\n" + m_content + "Q\n"), false);
    m_content.clear();
    m_used.clear();
    m_usedForms.clear();
}

} // namespace sm::publisher
