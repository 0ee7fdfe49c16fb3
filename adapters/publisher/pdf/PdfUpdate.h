// SPDX-License-Identifier: GPL-3.0-or-later
// An update at the end of a PDF that was just written: objects that are too large to pass through the PDF library,
// which holds every stream in memory, replace the small ones that stood for them (PDF 1.7, 7.5.6 and 7.5.8).
#pragma once

#include "pdf/Qpdf.h"
#include "pdf/TargetFile.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace sm::publisher {

using FileId = std::array<unsigned char, 16>;

/// Sees to it that the file's identifier is known before `pdf` is written, and gives its first half: a random one, or
/// for a reproducible document always the same; its second half tells documents apart then.
FileId KnownId(QPDF& pdf, bool reproducible);

class PdfUpdate {
public:
    /// `writer` has just written `pdf` to `target`, from its first byte, with a stream of cross references.
    PdfUpdate(QPDF& pdf, QPDFWriter& writer, TargetFile& target);

    /// The number that an object of the document has in the file.
    [[nodiscard]] int NumberOf(const QPDFObjectHandle& object);
    /// A number that no object of the file has yet.
    int NewNumber() { return m_size++; }
    /// Begins the object of that number; the caller writes what it is, up to "endobj".
    void Begin(int number);
    void Write(const std::string& text);
    [[nodiscard]] std::uint64_t Position() const { return m_target.BytesWritten(); }
    /// Writes the cross references; `id` is the second half of the identifier.
    void Finish(const FileId& id);

private:
    QPDF& m_pdf;
    QPDFWriter& m_writer;
    TargetFile& m_target;
    std::int64_t m_previous = 0; ///< where the cross references before these begin
    int m_size = 0;              ///< one more than the largest number
    std::map<int, std::uint64_t> m_places;
};

} // namespace sm::publisher
