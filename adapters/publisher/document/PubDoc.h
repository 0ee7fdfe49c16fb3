// SPDX-License-Identifier: GPL-3.0-or-later
// The publishing document: collects PostScript files and marks, and saves them as one PDF.
#pragma once

#include "base/files/PrivateFolder.h"
#include "document/DocumentInfo.h"
#include "document/DocumentPage.h"
#include "pages/IPageMaker.h"
#include "pdf/PublishStatus.h"
#include "ports/IDesktop.h"
#include "ports/IPubDoc.h"
#include "publisher/JobOptions.h"
#include "publisher/Publisher.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sm::publisher {

/// A page belongs to the document from the `AddPsFile` that accepted it to the first successful `SaveToPdf`, which
/// empties the document. A failing save changes nothing and may be repeated.
class PubDoc : public IPubDoc {
public:
    PubDoc(const PublisherOptions& options, IDesktop& desktop, std::unique_ptr<IPageMaker> pageMaker);

    std::int32_t AddPsFile(const std::string& psPath, double width, double height, std::int32_t resolution,
                           std::int32_t flag, const std::string& jobOptionsPath) override;
    std::string NewPsFileName() override;
    std::int32_t AddTextStampMark(std::int32_t reserved, double x, double y, const std::string& text,
                                  const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                  std::int32_t justification) override;
    std::int32_t AddSignatureFieldMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                                       const std::string& name, const std::string& label) override;
    std::int32_t AddAttachmentMark(std::int32_t reserved, double x, double y, const std::string& filePath,
                                   bool& added) override;
    std::int32_t AddLinkMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                             const std::string& url) override;
    std::int32_t AddPropertyMark(std::int32_t reserved, const std::string& name, const std::string& value) override;
    std::int32_t PendingMarkCount() override;
    void DiscardPendingMarks() override;
    void SetDocInfo(const std::string& key, const std::string& value) override;
    std::string PromptForPdfName(const std::string& defaultName, std::int32_t owner,
                                 const std::string& hostTitle) override;
    std::int32_t SaveToPdf(const std::string& pdfPath, std::int32_t hostValue, bool openInViewer, bool deletePs,
                           std::int32_t reserved) override;
    void SetDocSummary(const std::string& title, const std::string& author, LocalDateTime creationDate,
                       LocalDateTime modificationDate) override;
    std::string LastErrorText() override { return m_lastError; }
    std::string RemedyText() override;

private:
    template <typename Action> std::int32_t WithStatus(Action&& action);
    std::int32_t QueueMark(Mark mark, std::initializer_list<double> coordinates);
    template <typename Action> auto TellingFailure(Action&& action) const;
    void TakeJobOptions(const std::string& path);
    [[nodiscard]] PdfForm Form() const;
    const std::string& Folder();
    void Note(const std::string& line) const;
    /// Tells of a mark of the last page none of whose rectangle, in points, lies on it.
    void TellWhenOff(const std::string& mark, double x1, double y1, double x2, double y2);
    [[nodiscard]] std::string ReasonAgainst(const std::string& filePath) const;

    PublisherOptions m_options;
    IDesktop& m_desktop;
    std::unique_ptr<IPageMaker> m_pageMaker;
    std::unique_ptr<base::PrivateFolder> m_folder;
    std::vector<DocumentPage> m_pages;
    std::optional<std::pair<std::string, std::string>> m_jobOptions; ///< the last page's: path and clean text
    bool m_linearized = false;                                       ///< job options asked for it
    Archive m_archive = Archive::None;                               ///< likewise
    std::optional<double> m_level;                                   ///< the highest that they asked for
    DocumentInfo m_info;
    std::vector<std::string> m_attachmentsLost;
    std::vector<std::string> m_marksOff;
    std::string m_lastError;
    std::optional<PublishStatus> m_lastFailure;
    std::size_t m_namesGiven = 0;
};

} // namespace sm::publisher
