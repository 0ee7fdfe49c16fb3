// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RecordingLibrary.h"

#include "doubles/Crossing.h"
#include "doubles/ProducedTexts.h"

#include <array>
#include <cstdio>
#include <utility>

namespace sm {
namespace {

std::string DateText(LocalDateTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text.data();
}

class RecordingPubDoc final : public IPubDoc {
public:
    explicit RecordingPubDoc(RecordingLibrary& library) : m_library(library) { ++library.documentsAlive; }
    ~RecordingPubDoc() override { --m_library.documentsAlive; }

    std::int32_t AddPsFile(const std::string& psPath, double width, double height, std::int32_t resolution,
                           std::int32_t flag, const std::string& jobOptionsPath) override
    {
        Call("AddPsFile", psPath + " | " + TapeText(width) + " | " + TapeText(height) + " | " +
                              std::to_string(resolution) + " | " + std::to_string(flag) + " | " + jobOptionsPath);
        m_library.pendingMarks = 0;
        if (m_library.addPsFileCodes.empty())
            return 0;
        const std::int32_t code = m_library.addPsFileCodes.front();
        m_library.addPsFileCodes.pop_front();
        return code;
    }
    std::string NewPsFileName() override
    {
        Call("NewPsFileName");
        return m_library.tape.Answer("C:\\Temp\\sheet" + std::to_string(++m_names) + ".ps");
    }

    std::int32_t AddTextStampMark(std::int32_t reserved, double x, double y, const std::string& text,
                                  const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                  std::int32_t justification) override
    {
        return Mark("AddTextStampMark", std::to_string(reserved) + " | " + TapeText(x) + " | " + TapeText(y) + " | " +
                                            text + " | " + fontName + " | " + std::to_string(fontSize) + " | " +
                                            std::to_string(color) + " | " + std::to_string(justification));
    }
    std::int32_t AddSignatureFieldMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                                       const std::string& name, const std::string& label) override
    {
        return Mark("AddSignatureFieldMark",
                    std::to_string(reserved) + " | " + Corners(x1, y1, x2, y2) + " | " + name + " | " + label);
    }
    std::int32_t AddAttachmentMark(std::int32_t reserved, double x, double y, const std::string& filePath,
                                   bool& added) override
    {
        Call("AddAttachmentMark",
             std::to_string(reserved) + " | " + TapeText(x) + " | " + TapeText(y) + " | " + filePath);
        added = m_library.attachmentsAdded;
        m_library.pendingMarks += added ? 1 : 0;
        return m_library.markStatus;
    }
    std::int32_t AddLinkMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                             const std::string& url) override
    {
        return Mark("AddLinkMark", std::to_string(reserved) + " | " + Corners(x1, y1, x2, y2) + " | " + url);
    }
    std::int32_t AddPropertyMark(std::int32_t reserved, const std::string& name, const std::string& value) override
    {
        return Mark("AddPropertyMark", std::to_string(reserved) + " | " + name + " | " + value);
    }

    std::int32_t PendingMarkCount() override
    {
        Call("PendingMarkCount");
        return m_library.pendingMarks;
    }
    void DiscardPendingMarks() override
    {
        Call("DiscardPendingMarks");
        m_library.pendingMarks = 0;
    }
    void SetDocInfo(const std::string& key, const std::string& value) override
    {
        Call("SetDocInfo", key + " | " + value);
    }
    std::string PromptForPdfName(const std::string& defaultName, std::int32_t owner,
                                 const std::string& hostTitle) override
    {
        Call("PromptForPdfName", defaultName + " | " + std::to_string(owner) + " | " + hostTitle);
        return m_library.tape.Answer(m_library.pdfNameChosen);
    }
    std::int32_t SaveToPdf(const std::string& pdfPath, std::int32_t hostValue, bool openInViewer, bool deletePs,
                           std::int32_t reserved) override
    {
        Call("SaveToPdf", pdfPath + " | " + std::to_string(hostValue) + " | " + TapeText(openInViewer) + " | " +
                              TapeText(deletePs) + " | " + std::to_string(reserved));
        return m_library.saveStatus;
    }
    void SetDocSummary(const std::string& title, const std::string& author, LocalDateTime creationDate,
                       LocalDateTime modificationDate) override
    {
        Call("SetDocSummary",
             title + " | " + author + " | " + DateText(creationDate) + " | " + DateText(modificationDate));
    }
    std::string LastErrorText() override
    {
        Call("LastErrorText");
        return m_library.tape.Answer(m_library.lastErrorText);
    }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_library.tape.Call("PubDoc", "", operation, arguments);
    }
    std::int32_t Mark(const std::string& operation, const std::string& arguments)
    {
        Call(operation, arguments);
        ++m_library.pendingMarks;
        return m_library.markStatus;
    }
    static std::string Corners(double x1, double y1, double x2, double y2)
    {
        return TapeText(x1) + " | " + TapeText(y1) + " | " + TapeText(x2) + " | " + TapeText(y2);
    }
    RecordingLibrary& m_library;
    int m_names = 0;
};

class RecordingLog final : public IConversionLog {
public:
    explicit RecordingLog(RecordingLibrary& library) : m_library(library) { ++library.logsAlive; }
    ~RecordingLog() override { --m_library.logsAlive; }

    void OpenLog(const std::string& fileName, const std::string& applicationTitle) override
    {
        Call("OpenLog", fileName + " | " + applicationTitle);
        m_library.logOpen = true;
        m_library.logExists = true;
    }
    void WriteLogLine(const std::string& text) override
    {
        Call("WriteLogLine", text);
        m_library.NoteLine(text);
    }
    void CloseLog() override
    {
        Call("CloseLog");
        m_library.logOpen = false;
    }
    bool ShowLogFile(const std::string& fileName) override
    {
        Call("ShowLogFile", fileName);
        return m_library.logExists;
    }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_library.tape.Call("Log", "", operation, arguments);
    }
    RecordingLibrary& m_library;
};

} // namespace

std::vector<std::string> RecordingLibrary::TakeLog()
{
    return std::exchange(m_lines, {});
}

void RecordingLibrary::NoteLine(const std::string& text)
{
    m_lines.push_back(text);
    ProducedTexts().insert(text);
}

std::shared_ptr<IPubDoc> RecordingLibrary::CreatePubDoc()
{
    tape.Call("Library", "", "CreatePubDoc");
    return CrossingInForce()->Over(tape.Answer(Crossing::PubDoc(std::make_shared<RecordingPubDoc>(*this))));
}

std::shared_ptr<IConversionLog> RecordingLibrary::CreateConversionLog()
{
    tape.Call("Library", "", "CreateConversionLog");
    return CrossingInForce()->Over(tape.Answer(Crossing::Log(std::make_shared<RecordingLog>(*this))));
}

} // namespace sm
