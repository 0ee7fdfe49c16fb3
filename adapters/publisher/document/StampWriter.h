// SPDX-License-Identifier: GPL-3.0-or-later
// Text stamps as page content over the plot.
#pragma once

#include "dialect/StampForms.h"
#include "document/SheetPage.h"
#include "marks/StampText.h"

#include <map>
#include <string>

namespace sm::publisher {

/// Where stamps have their letters from: the fonts that every reader has, as far as they go, or fonts in the PDF.
enum class StampFonts { Standard, Embedded };

/// Collects the stamps of one page after the other; font objects are shared by the whole document.
class StampWriter {
public:
    StampWriter(QPDF& pdf, const StampTextsMaker& texts, StampFonts fonts, const Note& note)
        : m_pdf(pdf), m_forms(pdf, texts), m_fonts(fonts), m_note(note)
    {
    }
    void Add(const TextStampMark& mark, const SheetPage& sheet);
    /// Lays the stamps added since the last call over the page's content, which keeps its own graphics state.
    void FinishPage(const SheetPage& sheet);
    /// Gives the document what the stamps of all pages share.
    void Finish()
    {
        for (const std::string& remark : m_forms.Finish()) {
            m_note(remark);
        }
    }

private:
    struct Place {
        double x = 0, y = 0, size = 0, shift = 0; ///< page units; how much of the width stands left of the point
    };
    std::string InForm(const StampForm& form, const Place& place);
    std::string InStandardFont(const TextStampMark& mark, const StampFont& font, const StampText& text,
                               const Place& place);
    QPDFObjectHandle FontObject(const StampFont& font);
    std::string FontKey(const StampFont& font) const;

    QPDF& m_pdf;
    std::map<std::string, QPDFObjectHandle> m_standard; ///< by the PDF's name of the font
    std::map<std::string, QPDFObjectHandle> m_used;     ///< by resource name, on the present page
    StampForms m_forms;
    StampFonts m_fonts;
    std::map<std::string, QPDFObjectHandle> m_usedForms; ///< likewise
    std::string m_content;
    const Note& m_note;
};

} // namespace sm::publisher
