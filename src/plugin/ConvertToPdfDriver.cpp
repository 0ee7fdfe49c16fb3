// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/ConvertToPdfDriver.h"

#include "plotting/mdlAcadPrinting.h"
#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadDocument.h"
#include "ports/IPubDoc.h"
#include "ports/IRunObserver.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

#include <utility>

namespace sm {
namespace {

constexpr std::int32_t kSavedButNoReader = -12;
/// Stands for the status of a save that never answered.
constexpr std::int32_t kSaveFailed = -1;

struct ConversionRequest {
    std::int32_t hostValue = 0;
    std::int32_t whatToPlot = kPlotCurrentTab;
    bool promptForFileName = false, openInViewer = false, deletePs = false;
    std::int32_t resolution = ResolutionOf(kLinesForPrint);
    std::string jobOptionsFile;
};

/// One run of the driver.
class ConversionRun {
public:
    ConversionRun(CallContext& context, ConversionRequest request)
        : m_context(context), m_observer(context.surroundings.observer), m_request(std::move(request))
    {
    }
    void Run();

private:
    template <class Call> auto CarryPast(Call&& call) noexcept
    {
        return sm::CarryPast(m_context, "ConvertToPdfDriver", std::forward<Call>(call));
    }
    void ReadDrawingFacts();
    [[nodiscard]] std::string ChoosePdfPath();
    [[nodiscard]] bool PlotLayouts();
    void RestoreActiveLayout(const std::shared_ptr<IAcadLayout>& savedLayout);
    void SetDocumentInformation();
    void Save();
    void ReportSave(std::int32_t status, const std::string& saveError);
    void ReportFailedSave(std::int32_t status, const std::string& errorText);

    CallContext& m_context;
    IRunObserver& m_observer;
    ConversionRequest m_request;
    std::shared_ptr<IPubDoc> m_pubDoc;
    std::string m_author, m_baseName, m_fullName, m_pdfPath;
};

void ConversionRun::Run()
{
    m_pubDoc = CarryPast([&] { return m_context.surroundings.library.CreatePubDoc(); }).value_or(nullptr);
    if (m_pubDoc == nullptr) {
        m_observer.Saved("", kSaveFailed, "The publishing library is not available.");
        return;
    }
    ReadDrawingFacts();
    m_pdfPath = ChoosePdfPath();
    if (m_pdfPath.empty()) {
        m_observer.Saved("", kSaveFailed, "Cancelled.");
        return;
    }
    TryLogLine(m_context, "PLUGIN STARTING PDF FILE: " + m_pdfPath);
    if (!PlotLayouts())
        return;
    SetDocumentInformation();
    Save();
}

void ConversionRun::ReadDrawingFacts()
{
    if (m_context.g_AcadDoc != nullptr)
        m_author = LoginName(m_context, *m_context.g_AcadDoc);
    m_baseName = StripExtension(CarryPast([&] { return ActiveDrawing(m_context).Name(); }).value_or(""));
    m_fullName = CarryPast([&] { return ActiveDrawing(m_context).FullName(); }).value_or("");
}

std::string ConversionRun::ChoosePdfPath()
{
    const bool neverSaved = m_fullName.empty();
    if (neverSaved)
        m_fullName = m_baseName;
    if (!neverSaved && !m_request.promptForFileName)
        return StripExtension(m_fullName) + ".pdf";
    const std::int32_t owner = CarryPast([&] { return ActiveDrawing(m_context).HWND(); }).value_or(0);
    return CarryPast([&] { return m_pubDoc->PromptForPdfName(m_fullName, owner, "AutoCAD"); }).value_or("");
}

bool ConversionRun::PlotLayouts()
{
    m_observer.Stage("layouts");
    const std::vector<std::string> layoutNames =
        AcadGetPlotLayoutList(m_context, m_request.whatToPlot != kPlotCurrentTab);
    const std::int32_t pageSetupSource =
        m_context.g_AcadDoc == nullptr ? kPageSetupNative : ReadPlotSelection(m_context, *m_context.g_AcadDoc);
    const auto savedLayout = CarryPast([&] { return ActiveDrawing(m_context).ActiveLayout(); }).value_or(nullptr);
    const auto count = static_cast<std::int32_t>(layoutNames.size());
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string& name = layoutNames[static_cast<std::size_t>(i)];
        m_observer.SheetBegins(name, i + 1, count);
        const std::int32_t status = PlotLayoutToPubDoc(m_context, *m_pubDoc, name, kFalse, pageSetupSource,
                                                       m_request.resolution, m_request.jobOptionsFile);
        if (status < 0) {
            m_observer.Saved(m_pdfPath, status, "A sheet could not be converted.");
            return false;
        }
    }
    RestoreActiveLayout(savedLayout);
    return true;
}

void ConversionRun::RestoreActiveLayout(const std::shared_ptr<IAcadLayout>& savedLayout)
{
    if (savedLayout == nullptr)
        return;
    const auto activeName = CarryPast([&] {
        const auto active = ActiveDrawing(m_context).ActiveLayout();
        return active == nullptr ? std::string() : active->Name();
    });
    const auto savedName = CarryPast([&] { return savedLayout->Name(); });
    // A name that can't be read counts as different: setting the layout again does no harm.
    if (!activeName || !savedName || *activeName != *savedName)
        CarryPast([&] { ActiveDrawing(m_context).SetActiveLayout(savedLayout); });
}

void ConversionRun::SetDocumentInformation()
{
    IClock& clock = m_context.surroundings.clock;
    const LocalDateTime created = clock.Now();
    const LocalDateTime modified = clock.Now();
    CarryPast([&] { m_pubDoc->SetDocSummary(m_baseName, m_author, created, modified); });
    const std::string creator = std::string(kProductTitle) + " " + ProductVersion(m_context.surroundings);
    CarryPast([&] { m_pubDoc->SetDocInfo("Creator", creator); });
}

void ConversionRun::Save()
{
    m_observer.Stage("save");
    std::string saveError;
    const auto status = CarryOn(
        [&] {
            return m_pubDoc->SaveToPdf(m_pdfPath, m_request.hostValue, m_request.openInViewer, m_request.deletePs, 0);
        },
        [&](const std::string& description) {
            m_observer.CarriedPast("ConvertToPdfDriver", description);
            saveError = description;
        });
    ReportSave(status.value_or(kSaveFailed), saveError);
}

void ConversionRun::ReportSave(std::int32_t status, const std::string& saveError)
{
    if (status >= 0) {
        TryLogLine(m_context, "PDF FILE SAVED");
        m_observer.Saved(m_pdfPath, status, "");
    } else if (status == kSavedButNoReader) {
        TryLogLine(m_context, "PDF FILE SAVED");
        TryLogLine(m_context, "ERROR: READER NOT INSTALLED");
        m_observer.Saved(m_pdfPath, status, "");
        ShowProductMessage(m_context, "Could not open PDF file because the PDF Reader is not installed.",
                           MessageButtons::Ok, MessageIcon::Exclamation, 120);
    } else {
        const std::string errorText = CarryPast([&] { return m_pubDoc->LastErrorText(); }).value_or("");
        ReportFailedSave(status, errorText.empty() ? saveError : errorText);
    }
}

void ConversionRun::ReportFailedSave(std::int32_t status, const std::string& errorText)
{
    TryLogLine(m_context, "ERROR SAVING PDF FILE: " + std::to_string(status) + ", " + errorText);
    m_observer.Saved(m_pdfPath, status, errorText);
    TellOfFailedDocument(m_context, *m_pubDoc);
}

} // namespace

void ConvertToPdfDriver(CallContext& context, std::int32_t hostValue, std::int32_t whatToPlot,
                        VariantBool promptForFileName, VariantBool openInViewer, VariantBool deletePs,
                        std::int32_t optimization, const std::string& jobOptionsFile)
{
    ConversionRequest request;
    request.hostValue = hostValue;
    request.whatToPlot = whatToPlot;
    request.promptForFileName = promptForFileName != kFalse;
    request.openInViewer = openInViewer != kFalse;
    request.deletePs = deletePs != kFalse;
    request.resolution = ResolutionOf(optimization);
    request.jobOptionsFile = jobOptionsFile;
    ConversionRun(context, std::move(request)).Run();
}

} // namespace sm
