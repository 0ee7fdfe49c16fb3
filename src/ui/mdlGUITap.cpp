// SPDX-License-Identifier: GPL-3.0-or-later
// The routine that shows the settings dialog: load, show, pick, save.
#include "ui/mdlGUITap.h"

#include "plotting/PlotMessages.h"
#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IRunObserver.h"
#include "settings/mdlDataKegIO.h"
#include "ui/form/HostLists.h"
#include "ui/form/NumberFields.h"
#include "ui/frmAttach.h"
#include "ui/frmDigSig.h"
#include "ui/frmGUITap.h"
#include "ui/settings/SettingsAction.h"

namespace sm {
namespace {

constexpr std::int32_t kNoPlotSettings = -2;
constexpr std::int32_t kLeftWithoutConversion = 0;
constexpr std::int32_t kConvertNow = 1;

/// One showing of the dialog. Its operations throw what ends the routine.
class SettingsRun {
public:
    explicit SettingsRun(FormSession& session)
        : m_context(session.context), m_gui(session), m_attach(session, m_gui, m_gui.Action),
          m_digSig(session, m_gui, m_gui.Action)
    {
    }
    /// False when the user has been told that there is nothing to show.
    bool Load();
    std::int32_t ShowUntilDone();
    /// What the dialog holds at the moment, as OK would keep it; nothing is stored.
    bool Read(DataKeg& keg)
    {
        keg = m_keg;
        return ReadTabs(keg);
    }

private:
    void FillTabs();
    bool FillPageSetupTab();
    bool ReadTabs(DataKeg& keg);
    void SaveTabs();
    void PickPlotWindow();
    void PickStampPoint();
    void PickAttachPoint();
    void PickDigSigRectangle();

    /// A tab routine's False, or a save that failed, ends the routine.
    static void Require(bool success, const char* routine)
    {
        if (!success)
            throw HostError(std::string(routine) + " failed.");
    }

    CallContext& m_context;
    DataKeg m_keg;
    frmGUITap m_gui;
    frmAttach m_attach;
    frmDigSig m_digSig;
};

bool SettingsRun::Load()
{
    const std::int32_t status = LoadForDialog(m_context, ActiveDrawing(m_context), m_keg);
    if (status == kNoPlotSettings) {
        ShowPlotMessage(m_context, PlotMessage::PageSetupNotInitialized);
        return false;
    }
    Require(status == 0, "LoadForDialog");
    m_gui.Load();
    m_attach.Load();
    m_digSig.Load();
    m_gui.OnPageSetupSwitchedOff = [this] {
        m_keg.PageSetupSelected = SelectionOf(false, m_keg.PageSetupSelected);
        FillPageSetupTab();
    };
    FillTabs();
    return true;
}

bool SettingsRun::FillPageSetupTab()
{
    return SetPageSetupTab(m_gui.PageSetup(), {m_keg.Layouts.front().PageSetup, m_keg.PaperSizes, m_keg.PlotStyles,
                                               m_keg.PageSetupSelected});
}

void SettingsRun::FillTabs()
{
    Require(SetConversionSettingsTab(m_gui, m_keg), "SetConversionSettingsTab");
    Require(FillPageSetupTab(), "SetPageSetupTab");
    Require(SetStampTab(m_gui.Stamp(), m_keg), "SetStampTab");
    Require(SetAttachTab(m_gui, m_attach, m_keg), "SetAttachTab");
    Require(SetDigSigTab(m_gui, m_digSig, m_keg), "SetDigSigTab");
}

bool SettingsRun::ReadTabs(DataKeg& keg)
{
    LayoutSettings& entry = keg.Layouts.front();
    return SaveConversionSettingsTab(m_gui, keg) &&
           SavePageSetupTab(m_gui.PageSetup(), entry, entry.PageSetup, keg.PageSetupSelected) &&
           SaveStampTab(m_gui.Stamp(), keg) && SaveAttachTab(m_gui, keg) && SaveDigSigTab(m_gui, keg);
}

void SettingsRun::SaveTabs()
{
    LayoutSettings& entry = m_keg.Layouts.front();
    Require(SaveConversionSettingsTab(m_gui, m_keg), "SaveConversionSettingsTab");
    Require(SavePageSetupTab(m_gui.PageSetup(), entry, entry.PageSetup, m_keg.PageSetupSelected), "SavePageSetupTab");
    Require(SaveStampTab(m_gui.Stamp(), m_keg), "SaveStampTab");
    Require(SaveAttachTab(m_gui, m_keg), "SaveAttachTab");
    Require(SaveDigSigTab(m_gui, m_keg), "SaveDigSigTab");
    Require(SaveFromDialog(m_context, m_keg, ActiveDrawing(m_context)), "SaveFromDialog");
    m_context.surroundings.observer.Stage("settings");
}

std::int32_t SettingsRun::ShowUntilDone()
{
    for (;;) {
        m_gui.Action = kActionCancel;
        Require(m_gui.ShowModal(), "The settings dialog");
        switch (m_gui.Action) {
        case kActionOk:
            SaveTabs();
            return kLeftWithoutConversion;
        case kActionCreatePdf:
            SaveTabs();
            return kConvertNow;
        case kActionPickPlotWindow:
            PickPlotWindow();
            break;
        case kActionPickStampPoint:
            PickStampPoint();
            break;
        case kActionPickAttachPoint:
            PickAttachPoint();
            break;
        case kActionPickDigSigRectangle:
            PickDigSigRectangle();
            break;
        default:
            return kLeftWithoutConversion;
        }
    }
}

void SettingsRun::PickPlotWindow()
{
    const auto corners = PickRectangle(m_context);
    if (!corners)
        return;
    PageSetupControls& pageSetup = m_gui.PageSetup();
    pageSetup.PlotWinX1 = corners->first.x; // as picked: the host that is given the window puts it right
    pageSetup.PlotWinY1 = corners->first.y;
    pageSetup.PlotWinX2 = corners->second.x;
    pageSetup.PlotWinY2 = corners->second.y;
    if (pageSetup.HasPlotWindow())
        pageSetup.ChoosePlotWindow();
}

void SettingsRun::PickStampPoint()
{
    const auto point = PickPoint(m_context);
    if (!point)
        return;
    m_gui.SelectText("cmbStampLayout", CurrentLayoutName(m_context));
    m_gui.SetText("txtStampX", PointText(point->x));
    m_gui.SetText("txtStampY", PointText(point->y));
}

void SettingsRun::PickAttachPoint()
{
    if (const auto point = PickPoint(m_context)) {
        m_attach.SelectLayout(CurrentLayoutName(m_context));
        m_attach.SetText("txtAttachX", PointText(point->x));
        m_attach.SetText("txtAttachY", PointText(point->y));
    }
    m_gui.OnceShown = [this] { m_attach.ShowAgain(); };
}

void SettingsRun::PickDigSigRectangle()
{
    if (const auto corners = PickRectangle(m_context)) {
        m_digSig.SelectLayout(CurrentLayoutName(m_context));
        m_digSig.SetText("txtDigSigX1", PointText(corners->first.x));
        m_digSig.SetText("txtDigSigY1", PointText(corners->first.y));
        m_digSig.SetText("txtDigSigX2", PointText(corners->second.x));
        m_digSig.SetText("txtDigSigY2", PointText(corners->second.y));
    }
    m_gui.OnceShown = [this] { m_digSig.ShowAgain(); };
}

} // namespace

std::int32_t ShowConversionSettings(CallContext& context, IFormToolkit& toolkit, SettingsReader* reader)
{
    TryLogLine(context, "SHOW CONVERSION SETTINGS FORM");
    FormSession session{context, toolkit, {}};
    return GiveUp(
        [&] {
            SettingsRun run(session);
            if (!run.Load())
                return kLeftWithoutConversion;
            const ReaderInForce inForce(reader, [&run](DataKeg& keg) { return run.Read(keg); });
            return run.ShowUntilDone();
        },
        [&](const std::string& description) {
            TryLogLine(context, "RUNTIME ERROR: ShowConversionSettings -" + description);
            OfferConversionLog(context);
            return kLeftWithoutConversion;
        });
}

} // namespace sm
