// SPDX-License-Identifier: GPL-3.0-or-later
// The plot itself, the page in the publishing document, and the two exits.
#include "annotations/mdlAcadPdfMarks.h"
#include "hostobjects/cAcadTransferSettings.h"
#include "plotting/JobOptions.h"
#include "plotting/PlotConfig.h"
#include "plotting/PlotLoop.h"
#include "plotting/PostScriptDriver.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadApplication.h"
#include "ports/IPubDoc.h"
#include "ports/IRunObserver.h"
#include "settings/mdlWinReg.h"

namespace sm {
namespace {

constexpr std::int32_t kAccepted = 0;
constexpr std::int32_t kJobOptionsUnusable = -4;
/// Stands for the code of an AddPsFile that never answered.
constexpr std::int32_t kAddFailed = -1;
constexpr std::int32_t kPsFileFlag = 1;

double Points(double millimetres)
{
    return millimetres / 25.4 * 72;
}

TransferFlags FlagsOf(IAcadTransferSettings& settings)
{
    TransferFlags flags;
    flags.TransferTextHlinks = settings.TransferTextHlinks();
    flags.TransferDrawingHlinks = settings.TransferDrawingHlinks();
    flags.TransferBlockHlinks = settings.TransferBlockHlinks();
    flags.TransferVPortHlinks = settings.TransferVPortHlinks();
    flags.TransferAttributes = settings.TransferAttributes();
    return flags;
}

} // namespace

PlotLoop::Next PlotLoop::PlotToPostScript()
{
    ReadPageSize();
    const auto psPath = CarryPast([&] { return m_pubDoc.NewPsFileName(); });
    const auto plot = CarryPast([&] { return ActiveDrawing(m_context).Plot(); });
    if (!psPath || !plot || *plot == nullptr)
        return Leave(kPlotCancelled, Next::NormalExit);
    m_psPath = *psPath;
    const bool quiet = CarryPast([&] { (*plot)->SetQuietErrorMode(true); });
    const bool plotted = quiet && CarryPast([&] { return (*plot)->PlotToFile(m_psPath); }).value_or(false);
    return plotted ? Next::Step : Leave(kPlotCancelled, Next::NormalExit);
}

void PlotLoop::ReadPageSize()
{
    // The matched medium stands in for a sheet whose size can't be read.
    double width = m_plotSetup.PaperWidth, height = m_plotSetup.PaperHeight;
    CarryPast([&] { m_layout->GetPaperSize(width, height); });
    m_pageWidth = Points(width);
    m_pageHeight = Points(height);
}

PlotLoop::Next PlotLoop::AddToPubDoc()
{
    std::string jobPath = m_jobOptionsFile;
    while (true) {
        if (!jobPath.empty())
            jobPath = JobOptionsPath(m_context.surroundings, jobPath);
        const auto add = [&] {
            return m_pubDoc.AddPsFile(m_psPath, m_pageWidth, m_pageHeight, m_resolution, kPsFileFlag, jobPath);
        };
        const std::int32_t code = CarryPast(add).value_or(kAddFailed);
        if (code == kAccepted)
            return Next::Step;
        if (m_silent || code != kJobOptionsUnusable)
            return Refused(code);
        const std::optional<std::string> choice = PickJobOptions(m_context.surroundings);
        if (!choice)
            return Leave(kPlotCancelled, Next::NormalExit);
        jobPath = *choice;
    }
}

PlotLoop::Next PlotLoop::Refused(std::int32_t code)
{
    TryLogLine(m_context, "ERROR: FAILED TO ADD PS TO PUB DOC = " + std::to_string(code));
    if (!m_silent)
        TellOfFailedDocument(m_context, m_pubDoc);
    return Leave(kPlotRefused, Next::ShortExit);
}

PlotLoop::Next PlotLoop::AddAnnotations()
{
    m_context.surroundings.observer.Stage("annotations");
    cAcadTransferSettings settings(m_context.surroundings);
    const TransferFlags transfer = FlagsOf(settings);
    // A pass that fails has written its lines; the sheet is converted without the rest of its marks.
    if (m_context.g_AcadDoc != nullptr)
        AddPdfMarks(m_context, m_pubDoc, *m_context.g_AcadDoc, transfer, m_silent);
    return Next::Step;
}

PlotLoop::Next PlotLoop::CheckDisplayMarks()
{
    m_markCount = CarryPast([&] { return m_pubDoc.PendingMarkCount(); }).value_or(0);
    if (m_plotSetup.PlotType != kPlotDisplay || m_markCount <= 0)
        return Next::Step;
    CarryPast([&] { m_pubDoc.DiscardPendingMarks(); });
    m_markCount = 0;
    m_status = kPlotWithoutAnnotations;
    if (!m_silent && ShowPlotMessage(m_context, PlotMessage::DisplayWithoutAnnotations) == MessageAnswer::No)
        m_status = kPlotCancelled;
    return Next::Step;
}

void PlotLoop::NormalExit()
{
    TryLogLine(m_context, "RESET PAGE SETUP");
    ResetPlotterFolder();
    RestoreUserSetup();
}

void PlotLoop::ResetPlotterFolder()
{
    if (ResetPlotterPath(m_context) == 0 || m_silent)
        return;
    const auto folder = CarryPast([&] { return HostPreferences(m_context)->PrinterConfigPath(); });
    ShowPlotMessage(m_context, PlotMessage::PlotterFolderNotReset, folder.value_or(""));
}

void PlotLoop::RestoreUserSetup()
{
    if (!m_userSetup)
        return;
    const std::int32_t status = SetAcadPlotConfig(m_context, *m_layout, *m_userSetup, m_silent ? kTrue : kFalse, true);
    if (status == kConfigNoMedia && !m_silent)
        AskAboutMissingPlotter();
}

void PlotLoop::AskAboutMissingPlotter()
{
    Surroundings& surroundings = m_context.surroundings;
    const Setting& noShow = SettingNamed("NoShowAcad2000PlotterMsg");
    if (ReadIntegerSetting(surroundings, noShow) != 0)
        return;
    const MessageAnswer answer = ShowPlotMessage(m_context, PlotMessage::OriginalPlotterMissing);
    WriteSetting(surroundings, noShow.name, std::string(answer == MessageAnswer::No ? "1" : "0"));
}

void PlotLoop::ShortExit()
{
    ResetPlotterPath(m_context);
    TryLogLine(m_context, "ERROR: PlotLayoutToPubDoc " + std::to_string(m_status));
}

} // namespace sm
