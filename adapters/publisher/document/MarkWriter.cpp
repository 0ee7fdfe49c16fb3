// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/MarkWriter.h"

#include "document/Annotations.h"
#include "document/StampWriter.h"

#include <fmt/format.h>
#include <utility>

namespace sm::publisher {

namespace {

/// Sends each mark of each page to its maker.
class Writer {
public:
    Writer(QPDF& pdf, const std::vector<SheetPage>& pages, const StampTextsMaker& texts, DocumentInfo& info,
           MarkForm form, const Note& note)
        : m_links(pdf, pages, note), m_attachments(pdf, form.held, form.attached, note), m_fields(pdf, note),
          m_stamps(pdf, texts, form.fonts, note), m_info(info), m_note(note)
    {
    }

    void WritePage(const SheetPage& sheet)
    {
        m_annotations.clear();
        for (const Mark& mark : *sheet.marks) {
            const bool drawn = std::visit([&](const auto& kind) { return Draw(kind, sheet); }, mark);
            ++(drawn ? m_tally.drawn : m_tally.notDrawn);
        }
        m_stamps.FinishPage(sheet);
        if (!m_annotations.empty()) {
            QPDFObjectHandle page = sheet.page;
            page.replaceKey("/Annots", QPDFObjectHandle::newArray(m_annotations));
        }
    }

    MarkTally Finish()
    {
        m_fields.Finish();
        m_stamps.Finish();
        m_attachments.Finish();
        m_tally.embedded = m_attachments.Embedded();
        m_tally.lost = m_attachments.Lost();
        m_tally.large = m_attachments.Large();
        return m_tally;
    }

private:
    bool Draw(const LinkMark& mark, const SheetPage& sheet)
    {
        m_annotations.push_back(m_links.Make(mark, sheet));
        return true;
    }
    bool Draw(const SignatureFieldMark& mark, const SheetPage& sheet)
    {
        m_annotations.push_back(m_fields.Make(mark, sheet));
        return true;
    }
    bool Draw(const AttachmentMark& mark, const SheetPage& sheet)
    {
        auto annotation = m_attachments.Make(mark, sheet);
        if (annotation) {
            m_annotations.push_back(*annotation);
        }
        return annotation.has_value();
    }
    bool Draw(const TextStampMark& mark, const SheetPage& sheet)
    {
        m_stamps.Add(mark, sheet);
        return true;
    }
    bool Draw(const PropertyMark& mark, const SheetPage& sheet);

    LinkMaker m_links;
    AttachmentMaker m_attachments;
    FieldMaker m_fields;
    StampWriter m_stamps;
    DocumentInfo& m_info;
    const Note& m_note;
    std::vector<QPDFObjectHandle> m_annotations;
    MarkTally m_tally;
};

/// Sheets of a set may give one name different values: the later ones are kept under the sheet's name.
bool Writer::Draw(const PropertyMark& mark, const SheetPage& sheet)
{
    if (mark.value.empty()) {
        return true; // nothing to keep
    }
    const std::string sheetName = sheet.title.empty() ? fmt::format("Page {}", sheet.number) : sheet.title;
    std::string name = mark.name;
    for (int i = 1; m_info.Value(name).value_or(mark.value) != mark.value; ++i) {
        name =
            i == 1 ? fmt::format("{} ({})", mark.name, sheetName) : fmt::format("{} ({} {})", mark.name, sheetName, i);
    }
    m_info.Set(name, mark.value);
    if (name != mark.name) {
        m_note(fmt::format("Page {}: the property \"{}\" has another value on an earlier page; here it is named \"{}\"",
                           sheet.number, mark.name, name));
    }
    return true;
}

} // namespace

MarkTally WriteMarks(QPDF& pdf, const std::vector<SheetPage>& pages, const StampTextsMaker& texts, DocumentInfo& info,
                     MarkForm form, const Note& note)
{
    Writer writer(pdf, pages, texts, info, form, note);
    for (const SheetPage& sheet : pages) {
        writer.WritePage(sheet);
    }
    return writer.Finish();
}

} // namespace sm::publisher
