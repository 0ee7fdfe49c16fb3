// SPDX-License-Identifier: GPL-3.0-or-later
// Puts made pages together into the finished PDF: order, exact sizes, document information, marks, compression.
#pragma once

#include "document/DocumentInfo.h"
#include "document/MarkTally.h"
#include "marks/Marks.h"
#include "pages/IPageMaker.h"
#include "publisher/Navigation.h"
#include "publisher/PdfForm.h"
#include "publisher/StampTexts.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm::publisher {

class TargetFile;

/// Where a page of the document comes from, and its exact size in points.
struct PagePlace {
    std::size_t source = 0; ///< index into the made PDFs
    std::size_t index = 0;  ///< page of that PDF, from 0
    double width = 0, height = 0;
    std::string title;            ///< the sheet's name, may be empty
    const Marks* marks = nullptr; ///< never null when the document is put together
};

/// Everything that makes up the document.
struct Assembly {
    std::vector<MadePages> sources;
    std::vector<PagePlace> pages;
    DocumentInfo info;
    NavigationWanted navigation;
    PdfForm form;
    std::function<std::unique_ptr<IStampTexts>()> stampTexts; ///< may be empty
    std::function<void(const std::string& line)> note;        ///< never empty; hears of marks not drawn as asked
};

/// How many points one unit of a page's coordinates is: 1, or more where a side exceeds 14,400 points, the most that
/// a page may have without a unit of its own.
double UserUnitFor(double width, double height);

/// Writes the document to `target` without committing it. Throws PublishFailure.
MarkTally AssemblePdf(const Assembly& assembly, TargetFile& target);

} // namespace sm::publisher
