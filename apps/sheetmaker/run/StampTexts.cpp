// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/StampTexts.h"

#include "run/HostReport.h"
#include "stamptexts/StampTexts.h"

namespace sm::app {
namespace {

/// What is remarked of one document, which the report takes at its end.
struct DocumentRemarks {
    explicit DocumentRemarks(DrawingReport& taker) : report(taker) {}
    DocumentRemarks(const DocumentRemarks&) = delete;
    DocumentRemarks& operator=(const DocumentRemarks&) = delete;
    ~DocumentRemarks() { TakeRemarks(counted, report); }

    CountedRemarks counted;
    DrawingReport& report;
};

} // namespace

std::unique_ptr<publisher::IStampTexts> CreateStampTexts(const std::string& shareFolder, DrawingReport& report)
{
    return stamptexts::CreateStampTexts(
        shareFolder, [remarks = std::make_shared<DocumentRemarks>(report)](const std::string& remark) {
            ++remarks->counted[remark + ", in text stamps"];
        });
}

} // namespace sm::app
