// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/StampForms.h"

#include "base/text/Utf8.h"
#include "dialect/DialectFontObjects.h"
#include "pdf/PdfNumbers.h"
#include "pdf/PublishStatus.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

/// How far letters may reach out of their line, in em: the form's box must not cut them off.
constexpr double kReach = 4;

StampLook LookOf(const StampFont& font, std::int32_t color)
{
    const auto part = [color](int shift) { return static_cast<std::uint32_t>(color) >> shift & 0xFFU; };
    StampLook look;
    look.family = font.name.starts_with("Times")     ? "Times New Roman"
                  : font.name.starts_with("Courier") ? "Courier New"
                                                     : "Arial";
    look.bold = font.name.find("Bold") != std::string_view::npos;
    look.italic = font.name.find("Oblique") != std::string_view::npos || font.name.find("Italic") != std::string::npos;
    look.color = part(0) << 16 | part(8) << 8 | part(16);
    return look;
}

/// Controls become blanks, as in a standard font.
std::string StampLineOf(const std::string& text)
{
    std::string line = base::ValidUtf8(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return line;
}

} // namespace

std::optional<StampForm> StampForms::Form(const std::string& text, const StampFont& font, std::int32_t color,
                                          std::string& reason)
{
    if (!m_make) {
        return std::nullopt;
    }
    const StampLook look = LookOf(font, color);
    const std::string key =
        fmt::format("{}{:d}{:d}{:06x} {}", look.family, look.bold, look.italic, look.color, StampLineOf(text));
    if (const auto known = m_forms.find(key); known != m_forms.end()) {
        return known->second;
    }
    try {
        return m_forms.emplace(key, Make(StampLineOf(text), look)).first->second;
    } catch (const std::exception& error) {
        reason = error.what();
        return std::nullopt;
    }
}

StampForm StampForms::Make(const std::string& text, const StampLook& look)
{
    if (!m_texts) {
        m_texts = m_make();
    }
    const StampLine line = m_texts->Set(text, look);
    if (!CheckDialectBody(line.body)) {
        throw PublishFailure(PublishStatus::Internal, "the text's page content can't be read");
    }
    StampForm form{m_pdf.newStream(line.body), fmt::format("/SmText{}", m_forms.size() + 1), line.width};
    Object dictionary = form.object.getDict();
    const double reach = kReach * kStampEm;
    dictionary.replaceKey("/Type", Object::newName("/XObject"));
    dictionary.replaceKey("/Subtype", Object::newName("/Form"));
    dictionary.replaceKey("/BBox", Object::parse(fmt::format("[{} {} {} {}]", -reach, -reach,
                                                             std::ceil(line.width) * kStampEm + reach, reach)));
    const std::string scale = NumberText(1 / kStampEm);
    dictionary.replaceKey("/Matrix", Object::parse(fmt::format("[{} 0 0 {} 0 0]", scale, scale)));
    return form;
}

std::vector<std::string> StampForms::Finish()
{
    if (m_forms.empty()) {
        return {};
    }
    const auto fonts = ReadDialectFonts(m_texts->Fonts());
    bool readable = fonts.has_value();
    Object objects = Object::newDictionary();
    FontObjects shared(m_pdf);
    for (const DialectFont& font : fonts.value_or(std::vector<DialectFont>())) {
        Object object = shared.Font(font);
        readable = readable && !object.isNull();
        objects.replaceKey("/" + font.name, object);
    }
    if (!readable) {
        throw PublishFailure(PublishStatus::Internal, "The fonts of the text stamps can't be read.");
    }
    auto remarks = shared.Finish();
    Object resources = Object::newDictionary();
    resources.replaceKey("/Font", objects);
    const Object common = m_pdf.makeIndirectObject(resources);
    for (const auto& [key, form] : m_forms) {
        Object(form.object).getDict().replaceKey("/Resources", common);
    }
    return remarks;
}

} // namespace sm::publisher
