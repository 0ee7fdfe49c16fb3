// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/Annotations.h"

#include "base/files/Paths.h"
#include "pdf/PdfNumbers.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

constexpr const char* kIconContent = "0.2 0.35 0.7 RG 1.4 w 1 J 1 j\n" // a paper clip
                                     "10 14 m 10 5 l 10 1 4 1 4 5 c 4 15 l 4 20 12 20 12 15 c 12 5 l S\n";

Object Annotation(const char* subtype, const Object& rectangle, const SheetPage& sheet)
{
    auto annotation = Object::newDictionary();
    annotation.replaceKey("/Type", Object::newName("/Annot"));
    annotation.replaceKey("/Subtype", Object::newName(subtype));
    annotation.replaceKey("/Rect", rectangle);
    annotation.replaceKey("/P", sheet.page);
    annotation.replaceKey("/F", Object::newInteger(4)); // print
    return annotation;
}

Object FormXObject(QPDF& pdf, const std::string& content, double width, double height)
{
    auto form = pdf.newStream(content);
    form.getDict().replaceKey("/Type", Object::newName("/XObject"));
    form.getDict().replaceKey("/Subtype", Object::newName("/Form"));
    form.getDict().replaceKey("/BBox", PageRectangle(0, 0, width, height, 1));
    form.getDict().replaceKey("/Resources", Object::newDictionary());
    return form;
}

Object Appearance(const Object& normal)
{
    auto appearance = Object::newDictionary();
    appearance.replaceKey("/N", normal);
    return appearance;
}

/// Addresses are ASCII: every other byte, and what may not stand in one, becomes "%XX".
std::string AddressText(const std::string& url)
{
    std::string text;
    for (const char c : url) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = byte > 0x20 && byte < 0x7F && c != '"' && c != '<' && c != '>';
        text += plain ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned>(byte));
    }
    return text;
}

std::size_t Distance(std::size_t a, std::size_t b)
{
    return a > b ? a - b : b - a;
}

} // namespace

Object PageRectangle(double x1, double y1, double x2, double y2, double unit)
{
    const auto number = [unit](double value) { return Object::newReal(NumberText(value / unit)); };
    return Object::newArray(
        {number(std::min(x1, x2)), number(std::min(y1, y2)), number(std::max(x1, x2)), number(std::max(y1, y2))});
}

LinkMaker::LinkMaker(QPDF& pdf, const std::vector<SheetPage>& pages, const Note& note)
    : m_pdf(pdf), m_pages(pages), m_note(note)
{
    for (const SheetPage& sheet : pages) {
        m_byTitle.emplace(sheet.title, &sheet);
    }
}

/// Drawings of a set may have sheets of the same name: the nearest one is meant.
const SheetPage* LinkMaker::FindSheet(const std::string& name, std::size_t nearNumber) const
{
    const auto [first, last] = m_byTitle.equal_range(name);
    const auto nearest = std::min_element(first, last, [&](const auto& a, const auto& b) {
        return Distance(a.second->number, nearNumber) < Distance(b.second->number, nearNumber);
    });
    return nearest == last ? nullptr : nearest->second;
}

Object LinkMaker::Make(const LinkMark& mark, const SheetPage& sheet)
{
    auto link = Annotation("/Link", PageRectangle(mark.x1, mark.y1, mark.x2, mark.y2, sheet.unit), sheet);
    const auto zero = Object::newInteger(0);
    link.replaceKey("/Border", Object::newArray({zero, zero, zero}));
    const bool inside = mark.url.size() > 1 && mark.url[0] == '#';
    const SheetPage* target = inside ? FindSheet(mark.url.substr(1), sheet.number) : nullptr;
    if (mark.page > 0) {
        target = &m_pages.at(mark.page - 1);
    }
    if (target != nullptr) {
        link.replaceKey("/Dest", Object::newArray({target->page, Object::newName("/Fit")}));
        return m_pdf.makeIndirectObject(link);
    }
    if (inside) {
        m_note(fmt::format("Page {}: the link to \"{}\" leads nowhere: the document has no sheet of that name",
                           sheet.number, mark.url.substr(1)));
    }
    auto action = Object::newDictionary();
    action.replaceKey("/S", Object::newName("/URI"));
    action.replaceKey("/URI", Object::newString(AddressText(mark.url)));
    link.replaceKey("/A", action);
    return m_pdf.makeIndirectObject(link);
}

Object AttachmentMaker::Icon()
{
    if (!m_icon) {
        m_icon = FormXObject(m_pdf, kIconContent, kAttachmentWidth, kAttachmentHeight);
    }
    return *m_icon;
}

std::optional<Object> AttachmentMaker::Make(const AttachmentMark& mark, const SheetPage& sheet)
{
    const auto embedded = m_files.Embed(mark.filePath);
    if (!embedded) {
        m_lost.push_back(mark.filePath);
        m_note(fmt::format("Page {}: the file {} could not be attached: it can't be read any more", sheet.number,
                           mark.filePath));
        return std::nullopt;
    }
    auto annotation = Annotation(
        "/FileAttachment",
        PageRectangle(mark.x, mark.y, mark.x + kAttachmentWidth, mark.y + kAttachmentHeight, sheet.unit), sheet);
    const std::string name = base::ToText(base::ToPath(mark.filePath).filename());
    annotation.replaceKey("/FS", embedded->specification);
    annotation.replaceKey("/Name", Object::newName("/Paperclip"));
    annotation.replaceKey("/Contents", Object::newUnicodeString(name));
    annotation.replaceKey("/AP", Appearance(Icon()));
    const EmbeddedFile told{name, mark.filePath, embedded->bytes};
    if (std::ranges::find(m_told, told) == m_told.end()) {
        m_told.push_back(told);
    }
    return m_pdf.makeIndirectObject(annotation);
}

std::string FieldMaker::UniqueName(const SignatureFieldMark& mark, const SheetPage& sheet)
{
    std::string wanted = mark.name.empty() ? "Signature" : mark.name;
    std::ranges::replace(wanted, '.', '_'); // a dot would make a hierarchy of fields
    std::string name = wanted;
    for (int i = 2; !m_names.insert(name).second; ++i) {
        name = fmt::format("{}-{}", wanted, i);
    }
    if (name != mark.name) {
        m_note(fmt::format("Page {}: the signature field \"{}\" is named \"{}\" in the PDF", sheet.number, mark.name,
                           name));
    }
    return name;
}

Object FieldMaker::Make(const SignatureFieldMark& mark, const SheetPage& sheet)
{
    auto field = Annotation("/Widget", PageRectangle(mark.x1, mark.y1, mark.x2, mark.y2, sheet.unit), sheet);
    field.replaceKey("/FT", Object::newName("/Sig"));
    field.replaceKey("/T", Object::newUnicodeString(UniqueName(mark, sheet)));
    if (!mark.label.empty()) {
        field.replaceKey("/TU", Object::newUnicodeString(mark.label));
    }
    const double width = std::abs(mark.x2 - mark.x1) / sheet.unit;
    const double height = std::abs(mark.y2 - mark.y1) / sheet.unit;
    field.replaceKey("/AP", Appearance(FormXObject(m_pdf, "", width, height)));
    m_fields.push_back(m_pdf.makeIndirectObject(field));
    return m_fields.back();
}

void FieldMaker::Finish()
{
    if (!m_fields.empty()) {
        auto form = Object::newDictionary();
        form.replaceKey("/Fields", Object::newArray(m_fields));
        m_pdf.getRoot().replaceKey("/AcroForm", m_pdf.makeIndirectObject(form));
    }
}

} // namespace sm::publisher
