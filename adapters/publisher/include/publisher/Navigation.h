// SPDX-License-Identifier: GPL-3.0-or-later
// What a PDF reader shows beside the pages.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace sm::publisher {

struct NavigationWanted {
    bool outline = true;    ///< one entry per sheet
    bool pageLabels = true; ///< sheet names in place of page numbers, when any sheet has a name
    bool showTitle = true;  ///< the document's title in the window's frame, when it has one
    bool contents = false;  ///< pages in front that list the sheets by headings and titles, with links
    /// The heading under which a page's entry stands, by the number of the page among the sheets' from 1; empty text:
    /// under none. May be empty.
    std::function<std::string(std::size_t page)> heading = {};
};

} // namespace sm::publisher
