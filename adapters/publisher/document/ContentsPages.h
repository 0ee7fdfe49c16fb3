// SPDX-License-Identifier: GPL-3.0-or-later
// Pages in front of the sheets that list them: their titles with page numbers, each line a link.
#pragma once

#include "document/SheetPage.h"
#include "publisher/Navigation.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sm::publisher {

class ContentsPages {
public:
    /// Lays the pages out, A4 upright, by the sheets' titles and headings; none where `wanted` asks for none.
    ContentsPages(const std::vector<SheetPage>& sheets, const NavigationWanted& wanted);

    [[nodiscard]] std::size_t Count() const { return m_pages.size(); }
    /// Puts the pages in front of the document's others and of `sheets`, whose numbers grow by that. This object
    /// outlives `sheets`.
    void AddTo(QPDF& pdf, std::vector<SheetPage>& sheets) const;
    /// What was wanted of the sheets, for the pages of the document: those of this object have no heading.
    [[nodiscard]] NavigationWanted Navigation() const;

private:
    struct Line {
        std::string text;
        bool isHeading = false, isLast = true; ///< of its entry
        std::size_t sheet = 0;                 ///< that it leads to, from 1
    };
    void AddEntry(const std::string& text, bool isHeading, std::size_t sheet, std::vector<Line>& lines) const;
    void AddLine(const Line& line, double y, Marks& marks) const;
    void LayOut(const std::vector<Line>& lines);

    NavigationWanted m_wanted;
    std::vector<std::vector<Line>> m_lines; ///< of each page
    std::vector<Marks> m_pages;
};

} // namespace sm::publisher
