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
    /// The heading under which a page's entry stands, by the page's number from 1; empty text: under none. May be
    /// empty.
    std::function<std::string(std::size_t page)> heading = {};
};

} // namespace sm::publisher
