// SPDX-License-Identifier: GPL-3.0-or-later
// The road from accepted pages to a PDF on disk.
#pragma once

#include "document/DocumentInfo.h"
#include "document/DocumentPage.h"
#include "publisher/Navigation.h"
#include "publisher/Publisher.h"

#include <functional>
#include <string>
#include <vector>

namespace sm::publisher {

struct SaveRequest {
    const std::vector<DocumentPage>& pages;
    const DocumentInfo& info;
    const std::string& pdfPath;
    const std::string& workFolder; ///< private; what is made there is removed again
    NavigationWanted navigation;
    PdfForm form;
    std::function<std::string(const std::string& path)> useOf; ///< see PublisherOptions
    std::function<std::unique_ptr<IStampTexts>()> stampTexts;  ///< likewise
    std::function<void(const std::string& line)> note;         ///< never empty
};

/// Makes the pages, puts them together and renames the PDF into place. Throws PublishFailure; then nothing was
/// changed and nothing is left behind.
SaveReport SavePages(const SaveRequest& request, IPageMaker& pageMaker);

/// Removes the pages' PostScript files or, unless `deletePs`, moves those that lie in `workFolder` beside the PDF as
/// "<PDF's name>-<page>.ps". Tells the request's `note` where each went, and what could not be done.
void DisposePostScript(const SaveRequest& request, bool deletePs);

} // namespace sm::publisher
