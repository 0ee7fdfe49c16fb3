// SPDX-License-Identifier: GPL-3.0-or-later
// Pages' fonts as PDF objects; what pages have in common is written once.
#pragma once

#include "dialect/DialectPage.h"
#include "dialect/OutlineFonts.h"
#include "pdf/Qpdf.h"

#include <map>
#include <string>
#include <vector>

namespace sm::publisher {

/// The fonts of one document.
class FontObjects {
public:
    explicit FontObjects(QPDF& pdf) : m_pdf(pdf), m_outlines(pdf) {}
    /// The font dictionary; a null object when the font can't be used.
    QPDFObjectHandle Font(const DialectFont& font);
    /// Embeds the outline fonts. Called once, when all pages have their fonts. Answers what is to be told.
    std::vector<std::string> Finish() { return m_outlines.Finish(); }

private:
    QPDFObjectHandle DrawnFont(const DialectFont& font);

    QPDF& m_pdf;
    OutlineFonts m_outlines;
    std::map<std::string, QPDFObjectHandle> m_drawn, m_procedures; ///< by content
};

} // namespace sm::publisher
