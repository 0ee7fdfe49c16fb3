// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a page setup record onto a layout, checking on the way that the host can honour it.
#pragma once

#include "plugin/CallContext.h"
#include "ports/Variant.h"
#include "settings/PageSetupRecord.h"

#include <optional>
#include <string>
#include <vector>

namespace sm {

class IAcadLayout;

/// Status codes of SetAcadPlotConfig. With a negative one but kConfigNoStyle the settings after the failing one are not
/// written.
inline constexpr std::int32_t kConfigWritten = 0;
inline constexpr std::int32_t kConfigFailed = -1;         ///< the style picker or an unexpected host call failed
inline constexpr std::int32_t kConfigStyleCancelled = -2; ///< the style picker was cancelled
inline constexpr std::int32_t kConfigNoStyle = -3;        ///< silent: written without the missing style table
inline constexpr std::int32_t kConfigNoPlotter = -4;      ///< the plotter configuration can't be used
inline constexpr std::int32_t kConfigNoMedia = -5;        ///< the medium isn't offered, or has no readable size
inline constexpr std::int32_t kConfigViewRefused = -6;
inline constexpr std::int32_t kConfigViewMissing = -7;

/// `record` may come back with another plotter, medium, rotation, window and custom scale. `restore` puts a user's own
/// settings back: the same steps without log lines. Never throws.
std::int32_t SetAcadPlotConfig(CallContext& context, IAcadLayout& layout, PageSetupRecord& record, VariantBool silent,
                               bool restore);

/// One call of SetAcadPlotConfig: a method for each step. A step gives a status to end with, or nothing to go on.
class PlotConfig {
public:
    PlotConfig(CallContext& context, IAcadLayout& layout, PageSetupRecord& record, bool silent, bool restore)
        : m_context(context), m_layout(layout), m_record(record), m_silent(silent), m_restore(restore)
    {
    }
    /// Throws what an unexpected host call throws.
    std::int32_t Run();

private:
    using StepResult = std::optional<std::int32_t>;

    StepResult SetOptions();
    StepResult SetStyleSheet();
    StepResult ChoosePlotter();
    StepResult SetPlotter();
    StepResult SetMedia();
    StepResult SetRotation();
    StepResult SetWindow();
    StepResult SetView();
    StepResult SetPlotArea();
    StepResult SetScale();

    StepResult ChooseStyle(std::string& style);
    StepResult ReplacePlotterOfFirstGeneration(const std::vector<std::string>& devices);
    void ReplacePlotterByNone();
    void TakeLayoutsMedia();
    StepResult WriteMedia();
    [[nodiscard]] bool DrawingHasView();
    void SetPaperArea();
    void UseWindowInPlaceOfLayout();
    void WriteCenter();
    void WriteOrigin();
    void WriteWindow();
    void SetStandardScale();
    void SetCustomScale();

    /// A line of the trace; nothing in restore mode.
    void Trace(const std::string& text) noexcept;
    void TraceSkippedSettings(bool mediaToo);
    StepResult HostFailed(std::int32_t status, const std::string& description);

    CallContext& m_context;
    IAcadLayout& m_layout;
    PageSetupRecord& m_record;
    bool m_silent, m_restore;
    std::int32_t m_status = kConfigWritten;
};

} // namespace sm
