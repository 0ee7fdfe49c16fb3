// SPDX-License-Identifier: GPL-3.0-or-later
// A publishing library that writes down what it is asked and answers from a script.
#pragma once

#include "doubles/CallTape.h"
#include "ports/IPubDoc.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace sm {

class RecordingLibrary : public IPublishingLibrary {
public:
    CallTape tape;

    // What the publishing document answers.
    std::deque<std::int32_t> addPsFileCodes; ///< the first answers; 0 when used up
    std::string pdfNameChosen = "C:\\Out\\Chosen.pdf";
    std::int32_t saveStatus = 0;
    std::string lastErrorText;
    std::int32_t markStatus = 0;
    std::int32_t pendingMarks = 0; ///< counted up by the mark operations, 0 after AddPsFile and a discard
    bool attachmentsAdded = true;

    // The conversion log.
    bool logExists = false; ///< what ShowLogFile answers; opening a log makes it so
    bool logOpen = false;
    int documentsAlive = 0, logsAlive = 0;

    /// The lines of the log so far, which then count as looked at.
    [[nodiscard]] std::vector<std::string> TakeLog();
    [[nodiscard]] bool HasUnreadLines() const { return !m_lines.empty(); }
    void NoteLine(const std::string& text);

    std::shared_ptr<IPubDoc> CreatePubDoc() override;
    std::shared_ptr<IConversionLog> CreateConversionLog() override;

private:
    std::vector<std::string> m_lines;
};

} // namespace sm
