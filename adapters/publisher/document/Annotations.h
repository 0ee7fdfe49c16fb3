// SPDX-License-Identifier: GPL-3.0-or-later
// The PDF objects of links, attachments and signature fields.
#pragma once

#include "document/SheetPage.h"
#include "pdf/EmbeddedFiles.h"
#include "publisher/Publisher.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace sm::publisher {

/// Links to addresses, and to sheets of the same document ("#" and the sheet's name).
class LinkMaker {
public:
    /// `pages` outlive this object.
    LinkMaker(QPDF& pdf, const std::vector<SheetPage>& pages, const Note& note);
    QPDFObjectHandle Make(const LinkMark& mark, const SheetPage& sheet);

private:
    [[nodiscard]] const SheetPage* FindSheet(const std::string& name, std::size_t nearNumber) const;

    QPDF& m_pdf;
    const std::vector<SheetPage>& m_pages;
    std::multimap<std::string, const SheetPage*> m_byTitle;
    const Note& m_note;
};

/// Icons with embedded files.
class AttachmentMaker {
public:
    AttachmentMaker(QPDF& pdf, Held held, Dated dated, const Note& note)
        : m_pdf(pdf), m_files(pdf, held, dated), m_note(note)
    {
    }
    /// Nothing when the file can't be read any more.
    std::optional<QPDFObjectHandle> Make(const AttachmentMark& mark, const SheetPage& sheet);
    /// After the last one.
    void Finish() { m_files.List(); }
    /// The files that were embedded, each once.
    [[nodiscard]] const std::vector<EmbeddedFile>& Embedded() const { return m_told; }
    /// The paths of those that could not be.
    [[nodiscard]] const std::vector<std::string>& Lost() const { return m_lost; }
    [[nodiscard]] const std::vector<LargeFile>& Large() const { return m_files.Large(); }

private:
    QPDFObjectHandle Icon();

    QPDF& m_pdf;
    EmbeddedFiles m_files;
    std::vector<EmbeddedFile> m_told;
    std::vector<std::string> m_lost;
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
