// Puts made pages together into the finished PDF: order, exact sizes, document information, marks, compression.
#pragma once

#include "publisher/DocumentInfo.h"
#include "publisher/IPageMaker.h"

#include <cstddef>
#include <vector>

namespace sm::publisher {

class AtomicFile;

/// Where a page of the document comes from, and its exact size in points.
struct PagePlace {
    std::size_t source = 0; ///< index into the made PDFs
    std::size_t index = 0;  ///< page of that PDF, from 0
    double width = 0, height = 0;
};

/// How many points one unit of a page's coordinates is: 1, or more where a side exceeds 14,400 points, the most that
/// a page may have without a unit of its own.
double UserUnitFor(double width, double height);

/// Writes the document to `target` without committing it. Throws PublishFailure.
void AssemblePdf(const std::vector<MadePages>& sources, const std::vector<PagePlace>& pages, const DocumentInfo& info,
                 AtomicFile& target);

} // namespace sm::publisher
