// What a PDF reader shows beside the pages.
#pragma once

namespace sm::publisher {

struct NavigationWanted {
    bool outline = true;    ///< one entry per sheet
    bool pageLabels = true; ///< sheet names in place of page numbers, when any sheet has a name
    bool showTitle = true;  ///< the document's title in the window's frame, when it has one
};

} // namespace sm::publisher
