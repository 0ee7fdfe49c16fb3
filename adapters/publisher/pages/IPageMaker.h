// SPDX-License-Identifier: GPL-3.0-or-later
// The seam between "what pages a document has" and "what turns PostScript into PDF pages".
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class QPDF;

namespace sm::publisher {

/// One page to be made. `number` is its place in the document from 1, which error texts name.
struct PageSource {
    std::string psPath;
    double width = 0, height = 0; ///< points
    std::int32_t resolution = 600;
    std::size_t number = 0;
};

/// A PDF whose page k is the k-th page asked for: in memory when `document` is set, else the file at `path`.
struct MadePages {
    std::string path;
    std::shared_ptr<QPDF> document;
};

class IPageMaker {
public:
    virtual ~IPageMaker() = default;
    /// Throws the PublishFailure that `MakePages` would meet for want of a program, whatever the page holds.
    virtual void CheckPage(const PageSource& page, const std::string& jobOptions) = 0;
    /// Makes `pages`, which share one resolution and `jobOptions` (our clean text of them; empty for none), in
    /// order. Files go to `folder`, a name in a private folder: a maker that has files makes it, the caller removes it.
    /// Throws PublishFailure that names the page.
    virtual MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                                const std::string& folder) = 0;
};

} // namespace sm::publisher
