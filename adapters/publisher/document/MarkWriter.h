// Draws the queued marks onto the pages of a PDF that is being put together.
#pragma once

#include "dialect/StampForms.h"
#include "document/DocumentInfo.h"
#include "document/MarkTally.h"
#include "document/SheetPage.h"
#include "pdf/EmbeddedFiles.h"
#include "publisher/Navigation.h"

#include <vector>

namespace sm::publisher {

/// Draws all marks; properties go to `info`, `texts` may be empty; `held` says which attached files stand in memory.
/// `note` hears of every mark that could not be drawn as asked.
MarkTally WriteMarks(QPDF& pdf, const std::vector<SheetPage>& pages, const StampTextsMaker& texts, DocumentInfo& info,
                     Held held, const Note& note);

/// Enters outline, page labels and viewer preferences into the document's catalogue.
void WriteNavigation(QPDF& pdf, const std::vector<SheetPage>& pages, const NavigationWanted& wanted, bool hasTitle);

} // namespace sm::publisher
