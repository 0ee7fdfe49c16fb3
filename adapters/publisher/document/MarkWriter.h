// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the queued marks onto the pages of a PDF that is being put together.
#pragma once

#include "dialect/StampForms.h"
#include "document/DocumentInfo.h"
#include "document/MarkTally.h"
#include "document/SheetPage.h"
#include "document/StampWriter.h"
#include "pdf/EmbeddedFiles.h"
#include "publisher/Navigation.h"

#include <vector>

namespace sm::publisher {

struct MarkForm {
    Held held = Held::Small; ///< attached files that stand in memory
    StampFonts fonts = StampFonts::Standard;
    Dated attached = Dated::Yes;
};

/// Draws all marks; properties go to `info`, `texts` may be empty. `note` hears of every mark that could not be drawn
/// as asked.
MarkTally WriteMarks(QPDF& pdf, const std::vector<SheetPage>& pages, const StampTextsMaker& texts, DocumentInfo& info,
                     MarkForm form, const Note& note);

/// Enters outline, page labels and viewer preferences into the document's catalogue.
void WriteNavigation(QPDF& pdf, const std::vector<SheetPage>& pages, const NavigationWanted& wanted, bool hasTitle);

} // namespace sm::publisher
