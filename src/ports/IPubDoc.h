// SPDX-License-Identifier: GPL-3.0-or-later
// The publishing library: the document that collects PostScript files and marks, and the conversion log.
//
// A status below 0 is a failure that `LastErrorText` explains. Any operation may throw HostError.
#pragma once

#include "ports/LocalDateTime.h"

#include <cstdint>
#include <memory>
#include <string>

namespace sm {

class IPubDoc {
public:
    virtual ~IPubDoc() = default;

    /// Adds the next page. `width` and `height` are points, `resolution` dots per inch, `flag` is always 1, and
    /// `jobOptionsPath` is empty for none. 0 accepted; -4 the job options can't be used; any other value failure.
    /// The marks queued so far for this page are those added between this call and the next.
    virtual std::int32_t AddPsFile(const std::string& psPath, double width, double height, std::int32_t resolution,
                                   std::int32_t flag, const std::string& jobOptionsPath) = 0;
    /// Full path of the PostScript file that the next plot must write.
    virtual std::string NewPsFileName() = 0;

    /// Page coordinates of all marks are points from the page's lower-left corner; `reserved` is always 0.
    /// `color` has red in the low byte; `justification` 0 left, 1 centre, 2 right. Returns a status code.
    virtual std::int32_t AddTextStampMark(std::int32_t reserved, double x, double y, const std::string& text,
                                          const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                          std::int32_t justification) = 0;
    virtual std::int32_t AddSignatureFieldMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                                               const std::string& name, const std::string& label) = 0;
    /// `added` is false when the file could not be attached (missing or locked), which is not a failure.
    virtual std::int32_t AddAttachmentMark(std::int32_t reserved, double x, double y, const std::string& filePath,
                                           bool& added) = 0;
    virtual std::int32_t AddLinkMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                                     const std::string& url) = 0;
    virtual std::int32_t AddPropertyMark(std::int32_t reserved, const std::string& name, const std::string& value) = 0;

    /// How many marks are queued for the current file.
    virtual std::int32_t PendingMarkCount() = 0;
    /// Drops them.
    virtual void DiscardPendingMarks() = 0;

    virtual void SetDocInfo(const std::string& key, const std::string& value) = 0;
    /// Asks the user for the PDF's path; empty when cancelled.
    virtual std::string PromptForPdfName(const std::string& defaultName, std::int32_t owner,
                                         const std::string& hostTitle) = 0;
    /// 0 or more saved; -12 saved but no reader to open it; other negative values not saved.
    virtual std::int32_t SaveToPdf(const std::string& pdfPath, std::int32_t hostValue, bool openInViewer, bool deletePs,
                                   std::int32_t reserved = 0) = 0;
    virtual void SetDocSummary(const std::string& title, const std::string& author, LocalDateTime creationDate,
                               LocalDateTime modificationDate) = 0;
    virtual std::string LastErrorText() = 0;
    /// How the user mends what the last failing status was for, in whole sentences that are shown in place of "an
    /// unknown error"; empty where the document knows of no remedy.
    virtual std::string RemedyText() { return {}; }
};

class IConversionLog {
public:
    virtual ~IConversionLog() = default;
    virtual void OpenLog(const std::string& fileName, const std::string& applicationTitle) = 0;
    virtual void WriteLogLine(const std::string& text) = 0;
    virtual void CloseLog() = 0;
    /// True when the file exists and was shown, false when there is no log yet.
    virtual bool ShowLogFile(const std::string& fileName) = 0;
};

/// Makes the library's objects; either call throws HostError when the library isn't there.
class IPublishingLibrary {
public:
    virtual ~IPublishingLibrary() = default;
    virtual std::shared_ptr<IPubDoc> CreatePubDoc() = 0;
    virtual std::shared_ptr<IConversionLog> CreateConversionLog() = 0;
};

} // namespace sm
