// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/publishing/AutomationPublisher.h"

#include "windows/automation/AutomationErrors.h"
#include "windows/automation/AutomationObject.h"
#include "windows/automation/Values.h"
#include "windows/automation/WideText.h"

#include <objbase.h>

namespace sm::windows {
namespace {

class AutomationPubDoc final : public IPubDoc {
public:
    explicit AutomationPubDoc(IDispatch* object) : m_object(object) {}

    std::int32_t AddPsFile(const std::string& psPath, double width, double height, std::int32_t resolution,
                           std::int32_t flag, const std::string& jobOptionsPath) override
    {
        return Status("AddPsFile", FromText(psPath), FromDouble(width), FromDouble(height), FromInteger(resolution),
                      FromInteger(flag), FromText(jobOptionsPath));
    }
    std::string NewPsFileName() override { return ToText(m_object.Call("NewPsFileName").Raw()); }

    std::int32_t AddTextStampMark(std::int32_t reserved, double x, double y, const std::string& text,
                                  const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                  std::int32_t justification) override
    {
        return Status("AddTextStampMark", FromInteger(reserved), FromDouble(x), FromDouble(y), FromText(text),
                      FromText(fontName), FromInteger(fontSize), FromInteger(color), FromInteger(justification));
    }
    std::int32_t AddSignatureFieldMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                                       const std::string& name, const std::string& label) override
    {
        return Status("AddSignatureFieldMark", FromInteger(reserved), FromDouble(x1), FromDouble(y1), FromDouble(x2),
                      FromDouble(y2), FromText(name), FromText(label));
    }
    std::int32_t AddAttachmentMark(std::int32_t reserved, double x, double y, const std::string& filePath,
                                   bool& added) override
    {
        VARIANT_BOOL wasAdded = VARIANT_FALSE;
        const std::int32_t status = Status("AddAttachmentMark", FromInteger(reserved), FromDouble(x), FromDouble(y),
                                           FromText(filePath), ByReference(wasAdded));
        added = wasAdded != VARIANT_FALSE;
        return status;
    }
    std::int32_t AddLinkMark(std::int32_t reserved, double x1, double y1, double x2, double y2,
                             const std::string& url) override
    {
        return Status("AddLinkMark", FromInteger(reserved), FromDouble(x1), FromDouble(y1), FromDouble(x2),
                      FromDouble(y2), FromText(url));
    }
    std::int32_t AddPropertyMark(std::int32_t reserved, const std::string& name, const std::string& value) override
    {
        return Status("AddPropertyMark", FromInteger(reserved), FromText(name), FromText(value));
    }

    std::int32_t PendingMarkCount() override { return Status("PendingMarkCount"); }
    void DiscardPendingMarks() override { m_object.Call("DiscardPendingMarks"); }
    void SetDocInfo(const std::string& key, const std::string& value) override
    {
        m_object.Call("SetDocInfo", FromText(key), FromText(value));
    }
    std::string PromptForPdfName(const std::string& defaultName, std::int32_t owner,
                                 const std::string& hostTitle) override
    {
        return ToText(
            m_object.Call("PromptForPdfName", FromText(defaultName), FromInteger(owner), FromText(hostTitle)).Raw());
    }
    std::int32_t SaveToPdf(const std::string& pdfPath, std::int32_t hostValue, bool openInViewer, bool deletePs,
                           std::int32_t reserved) override
    {
        return Status("SaveToPdf", FromText(pdfPath), FromInteger(hostValue), FromBoolean(openInViewer),
                      FromBoolean(deletePs), FromInteger(reserved));
    }
    void SetDocSummary(const std::string& title, const std::string& author, LocalDateTime creationDate,
                       LocalDateTime modificationDate) override
    {
        m_object.Call("SetDocSummary", FromText(title), FromText(author), FromDate(creationDate),
                      FromDate(modificationDate));
    }
    std::string LastErrorText() override { return ToText(m_object.Call("LastErrorText").Raw()); }

private:
    template <class... Arguments> std::int32_t Status(std::string_view member, const Arguments&... arguments)
    {
        return ToInteger(m_object.Call(member, arguments...).Raw());
    }
    AutomationObject m_object;
};

class AutomationLog final : public IConversionLog {
public:
    explicit AutomationLog(IDispatch* object) : m_object(object) {}
    void OpenLog(const std::string& fileName, const std::string& applicationTitle) override
    {
        m_object.Call("OpenLog", FromText(fileName), FromText(applicationTitle));
    }
    void WriteLogLine(const std::string& text) override { m_object.Call("WriteLogLine", FromText(text)); }
    void CloseLog() override { m_object.Call("CloseLog"); }
    bool ShowLogFile(const std::string& fileName) override
    {
        return ToBoolean(m_object.Call("ShowLogFile", FromText(fileName)).Raw());
    }

private:
    AutomationObject m_object;
};

[[noreturn]] void ThrowNotThere(const char* progId, HRESULT result)
{
    throw HostError("The publishing library TwSmPubLib isn't installed or can't be started (" + std::string(progId) +
                    ": " + TextOfResult(result) + ")");
}

ComRef<IDispatch> Create(const char* progId)
{
    CLSID id{};
    ComRef<IDispatch> object;
    HRESULT result = CLSIDFromProgID(Wide(progId).c_str(), &id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                  reinterpret_cast<void**>(object.Receive()));
    if (FAILED(result) || !object)
        ThrowNotThere(progId, result);
    return object;
}

class AutomationPublisher final : public IPublishingLibrary {
public:
    std::shared_ptr<IPubDoc> CreatePubDoc() override
    {
        return CreateAutomationPubDoc(Create("TwSmPubLib.PubDoc").Get());
    }
    std::shared_ptr<IConversionLog> CreateConversionLog() override
    {
        return std::make_shared<AutomationLog>(Create("TwSmPubLib.ConversionLog").Get());
    }
};

} // namespace

std::unique_ptr<IPublishingLibrary> CreateAutomationPublisher()
{
    return std::make_unique<AutomationPublisher>();
}

std::shared_ptr<IPubDoc> CreateAutomationPubDoc(IDispatch* pubDoc)
{
    return std::make_shared<AutomationPubDoc>(pubDoc);
}

} // namespace sm::windows
