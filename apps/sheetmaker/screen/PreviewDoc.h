// SPDX-License-Identifier: GPL-3.0-or-later
// A publishing document that keeps one page's marks and makes no PDF.
#pragma once

#include "beside/PageSource.h"
#include "ports/IPubDoc.h"

#include <vector>

namespace sm::app {

class PreviewDoc final : public IPubDoc {
public:
    /// Points from the lower-left corner of the sheet as it leaves the plotter.
    [[nodiscard]] const std::vector<beside::PageMark>& Marks() const { return m_marks; }

    std::int32_t AddPsFile(const std::string&, double, double, std::int32_t, std::int32_t, const std::string&) override
    {
        return 0;
    }
    std::string NewPsFileName() override { return "preview"; } // the host writes none
    std::int32_t AddTextStampMark(std::int32_t, double x, double y, const std::string& text,
                                  const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                  std::int32_t justification) override;
    std::int32_t AddSignatureFieldMark(std::int32_t, double x1, double y1, double x2, double y2,
                                       const std::string& name, const std::string& label) override;
    std::int32_t AddAttachmentMark(std::int32_t, double x, double y, const std::string& filePath, bool& added) override;
    std::int32_t AddLinkMark(std::int32_t, double x1, double y1, double x2, double y2, const std::string& url) override;
    std::int32_t AddPropertyMark(std::int32_t, const std::string&, const std::string&) override { return 0; }
    std::int32_t PendingMarkCount() override { return static_cast<std::int32_t>(m_marks.size()); }
    void DiscardPendingMarks() override { m_marks.clear(); }
    void SetDocInfo(const std::string&, const std::string&) override {}
    std::string PromptForPdfName(const std::string&, std::int32_t, const std::string&) override { return {}; }
    std::int32_t SaveToPdf(const std::string&, std::int32_t, bool, bool, std::int32_t) override { return -1; }
    void SetDocSummary(const std::string&, const std::string&, LocalDateTime, LocalDateTime) override {}
    std::string LastErrorText() override { return "A preview is not saved."; }

private:
    std::vector<beside::PageMark> m_marks;
};

} // namespace sm::app
