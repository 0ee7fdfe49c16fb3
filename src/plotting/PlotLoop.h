// SPDX-License-Identifier: GPL-3.0-or-later
// One call of PlotLayoutToPubDoc.
#pragma once

#include "plotting/PlotMessages.h"
#include "plotting/mdlAcadPrinting.h"
#include "plugin/CarryPast.h"
#include "settings/PageSetupRecord.h"

#include <optional>
#include <utility>

namespace sm {

class IAcadLayout;

/// The state of one call, a method for each step, and the two exits.
class PlotLoop {
public:
    PlotLoop(CallContext& context, IPubDoc& pubDoc, std::string layoutName, bool silent, std::int32_t pageSetupSource,
             std::int32_t resolution, std::string jobOptionsFile);
    std::int32_t Run();

private:
    /// How a step leaves the call: on to the next step, or to one of the exits.
    enum class Next { Step, NormalExit, ShortExit };

    Next CheckDriver();
    Next SelectLayout();
    Next ReadUserSetup();
    Next ChoosePlotSetup();
    Next AnnouncePageSetup();
    Next SwitchPlotterFolder();
    Next MatchPaper();
    Next ConfigureLayout();
    Next PlotToPostScript();
    Next AddToPubDoc();
    Next AddAnnotations();
    Next CheckDisplayMarks();

    /// Puts plotter folder and plot settings back.
    void NormalExit();
    /// Puts the plotter folder back; the layout stays configured as it is.
    void ShortExit();

    [[nodiscard]] std::shared_ptr<IAcadLayout> FindLayout();
    Next Refused(std::int32_t code);
    void ReadPageSize();
    void ResetPlotterFolder();
    void RestoreUserSetup();
    void AskAboutMissingPlotter();

    Next Leave(std::int32_t status, Next exit);
    /// The message, unless the call is silent.
    void Tell(PlotMessage message);
    template <class Call> auto CarryPast(Call&& call) noexcept
    {
        return sm::CarryPast(m_context, "PlotLayoutToPubDoc", std::forward<Call>(call));
    }

    CallContext& m_context;
    IPubDoc& m_pubDoc;
    std::string m_layoutName;
    bool m_silent;
    std::int32_t m_source, m_resolution;
    std::string m_jobOptionsFile;

    std::int32_t m_status = kPlotConverted;
    std::int32_t m_markCount = 0;
    std::shared_ptr<IAcadLayout> m_layout;
    std::optional<PageSetupRecord> m_userSetup; ///< as found on the layout; put back at the end
    PageSetupRecord m_plotSetup;                ///< to plot with
    double m_pageWidth = 0, m_pageHeight = 0;   ///< points
    std::string m_psPath;
};

} // namespace sm
