// Draws the queued marks onto the pages of a PDF that is being put together.
#pragma once

#include "document/PdfAssembly.h"
#include "pdf/Qpdf.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace sm::publisher {

using Note = std::function<void(const std::string& line)>;

/// A page that already has its final size.
struct SheetPage {
    QPDFObjectHandle page;
    std::string title;      ///< the sheet's name, may be empty
    double unit = 1;        ///< points per unit of the page's coordinates
    std::size_t number = 0; ///< from 1
    const Marks* marks = nullptr;
};

/// Draws all marks; properties go to `info`. `note` hears of every mark that could not be drawn as asked.
MarkTally WriteMarks(QPDF& pdf, const std::vector<SheetPage>& pages, DocumentInfo& info, const Note& note);

/// Enters outline, page labels and viewer preferences into the document's catalogue.
void WriteNavigation(QPDF& pdf, const std::vector<SheetPage>& pages, const NavigationWanted& wanted, bool hasTitle);

} // namespace sm::publisher
