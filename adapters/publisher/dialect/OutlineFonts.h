// SPDX-License-Identifier: GPL-3.0-or-later
// Outline fonts of a document: each face is embedded once, whatever pages its glyphs stand on.
//
// A page's strings hold one-byte codes of its own. Its font is a composite one whose CMap takes these codes to the
// numbers that the glyphs have in the document (PDF 1.7, 9.7), so that the page's content stays as it is.
#pragma once

#include "dialect/CodeMaps.h"
#include "dialect/DialectPage.h"
#include "fonts/SfntGlyphs.h"
#include "pdf/Qpdf.h"

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace sm::publisher {

class OutlineFonts {
public:
    explicit OutlineFonts(QPDF& pdf) : m_pdf(pdf) {}
    /// The dictionary of a page's font, without its name until Finish; pages whose codes mean the same share it. Null
    /// when `font` holds no TrueType file that can be used.
    QPDFObjectHandle Font(const DialectFont& font);
    /// Embeds the faces. Called once, when all pages have their fonts. Answers what is to be told.
    std::vector<std::string> Finish();

private:
    /// The document's glyphs of a face.
    struct Face {
        std::string name;
        SfntSubset subset;
        std::map<SfntGlyph, std::uint16_t> numbers; ///< in `subset`
        FontSource source;                          ///< its glyphs are those of `subset`
        QPDFObjectHandle descendant;
        std::vector<std::pair<QPDFObjectHandle, GlyphNumbers>> fonts; ///< of pages
        std::map<std::string, QPDFObjectHandle> known;                ///< those by what their codes mean
    };
    /// A face as it goes into the file.
    struct Program {
        std::string bytes;
        bool isCubic = false;
        std::vector<std::uint16_t> advances; ///< of all its glyphs; font units
        std::vector<std::uint16_t> numbers;  ///< of the face's glyphs
    };
    Face& FaceFor(const DialectFont& font, const SfntSubset& subset);
    static Program OfItsFile(const Face& face);
    static Program OfItsPages(const Face& face, SfntFacts& facts);
    void Embed(Face& face, std::vector<std::string>& remarks);
    void Complete(QPDFObjectHandle font, GlyphNumbers numbers, const std::string& name, const Program& program);

    QPDF& m_pdf;
    std::deque<Face> m_faces;
};

} // namespace sm::publisher
