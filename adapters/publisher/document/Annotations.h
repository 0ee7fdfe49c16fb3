// The PDF objects of links, attachments and signature fields.
#pragma once

#include "document/SheetPage.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace sm::publisher {

/// Links to addresses, and to sheets of the same document ("#" and the sheet's name).
class LinkMaker {
public:
    LinkMaker(QPDF& pdf, const std::vector<SheetPage>& pages, const Note& note);
    QPDFObjectHandle Make(const LinkMark& mark, const SheetPage& sheet);

private:
    [[nodiscard]] const SheetPage* FindSheet(const std::string& name, std::size_t nearNumber) const;

    QPDF& m_pdf;
    std::multimap<std::string, const SheetPage*> m_byTitle;
    const Note& m_note;
};

/// Icons with embedded files; a file that several marks name is embedded once.
class AttachmentMaker {
public:
    AttachmentMaker(QPDF& pdf, const Note& note) : m_pdf(pdf), m_note(note) {}
    /// Nothing when the file can't be read any more.
    std::optional<QPDFObjectHandle> Make(const AttachmentMark& mark, const SheetPage& sheet);

private:
    std::optional<QPDFObjectHandle> FileSpec(const std::string& path);
    QPDFObjectHandle Icon();

    QPDF& m_pdf;
    std::map<std::string, QPDFObjectHandle> m_files;
    std::optional<QPDFObjectHandle> m_icon;
    const Note& m_note;
};

/// Unsigned signature fields with names of their own.
class FieldMaker {
public:
    FieldMaker(QPDF& pdf, const Note& note) : m_pdf(pdf), m_note(note) {}
    QPDFObjectHandle Make(const SignatureFieldMark& mark, const SheetPage& sheet);
    /// Enters the fields made so far into the document's form.
    void Finish();

private:
    std::string UniqueName(const SignatureFieldMark& mark, const SheetPage& sheet);

    QPDF& m_pdf;
    std::vector<QPDFObjectHandle> m_fields;
    std::set<std::string> m_names;
    const Note& m_note;
};

/// A rectangle with sorted corners, in the page's own units.
QPDFObjectHandle PageRectangle(double x1, double y1, double x2, double y2, double unit);

} // namespace sm::publisher
