// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/UnplottedMarks.h"

#include "settings/StampChoices.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::app {
namespace {

class Teller {
public:
    Teller(bool isLoss, DrawingReport& report) : m_isLoss(isLoss), m_report(report) {}

    void Tell(const std::string& mark, const std::string& layout)
    {
        const auto plotted = [&](const SheetReport& sheet) { return sheet.name == layout; };
        if (layout == kAllLayouts || std::any_of(m_report.sheets.begin(), m_report.sheets.end(), plotted))
            return;
        m_report.notes.push_back(fmt::format("{} is on layout \"{}\", of which this PDF has no page", mark, layout));
        if (m_isLoss)
            m_report.marksLost.push_back(mark);
    }

private:
    bool m_isLoss;
    DrawingReport& m_report;
};

} // namespace

void TellUnplottedMarks(CallContext& context, IAcadDocument& document, bool isLoss, DrawingReport& report)
{
    Teller teller(isLoss, report);
    std::vector<AttachmentEntry> attachments;
    ReadAttachments(context, document, attachments);
    for (const AttachmentEntry& entry : attachments)
        teller.Tell("the attached file " + entry.FilePath, entry.LayoutName);
    std::vector<SignatureFieldEntry> fields;
    ReadSignatureFields(context, document, fields);
    for (const SignatureFieldEntry& field : fields)
        teller.Tell("the signature field \"" + field.FieldName + "\"", field.LayoutName);
    StampSettings stamp;
    if (ReadStamp(context, document, stamp) && stamp.StampIndex > 0)
        teller.Tell("the stamp", stamp.LayoutName);
}

} // namespace sm::app
