// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/SheetWatcher.h"

#include "settings/mdlWinReg.h"

#include <fmt/format.h>

namespace sm::app {
namespace {

/// An observer must not disturb the run, whatever happens to it.
template <class Work> void Quietly(Work work) noexcept
{
    try {
        work();
    } catch (...) {
    }
}

struct Meaning {
    std::int32_t status;
    const char* text;
};

constexpr Meaning kStatusMeanings[] = {
    {-1, "it was cancelled or could not be plotted"},
    {-2, "its page setup could not be applied"},
    {-5, "it has no usable page setup"},
    {-7, "the folder of plotter configurations could not be used"},
    {-8, "the plotter configuration (PC3) file could not be found"},
    {-9, "its paper is not on the plotter's list"},
    {-10, "its view to plot is missing"},
    {-11, "the PostScript driver could not be found"},
    {-12, "its page was refused by the publisher"},
    {-13, "there is no such layout"},
};

} // namespace

std::string StatusText(std::int32_t status)
{
    for (const Meaning& meaning : kStatusMeanings)
        if (meaning.status == status)
            return meaning.text;
    return fmt::format("it ended with status {}", status);
}

void SheetWatcher::Stage(const std::string& name) noexcept
{
    if (name == "settings") {
        m_settingsKept = true;
        if (m_whenSettingsAreKept)
            Quietly(m_whenSettingsAreKept);
        return; // no stage to be shown: it is over already
    }
    Quietly([&] { m_console.Progress(m_report.drawing + ": " + (m_where.empty() ? "" : m_where + ", ") + name); });
}

void SheetWatcher::SheetBegins(const std::string& layoutName, std::int32_t index, std::int32_t count) noexcept
{
    Quietly([&] {
        m_reason.clear();
        m_carriedPast.clear();
        m_annotationsLost = false;
        m_where = fmt::format("sheet {} of {} \"{}\"", index, count, layoutName);
        m_console.Progress(m_report.drawing + ": " + m_where);
        if (m_whenSheetBegins)
            m_whenSheetBegins(layoutName, index, count);
    });
}

void SheetWatcher::SheetEnds(const std::string& layoutName, std::int32_t status, std::int32_t markCount) noexcept
{
    Quietly([&] { m_report.sheets.push_back({layoutName, status, markCount}); });
}

void SheetWatcher::Saved(const std::string& pdfPath, std::int32_t status, const std::string& errorText) noexcept
{
    Quietly([&] { m_save = Save{pdfPath, errorText, status}; });
}

void SheetWatcher::AnnotationsLost(const std::string& /*description*/) noexcept
{
    Quietly([&] {
        if (std::exchange(m_annotationsLost, true))
            return;
        m_report.notes.emplace_back("some annotations of a sheet could not be added; the log has the errors");
        m_report.marksLost.push_back("some annotations of " + (m_where.empty() ? "a sheet" : m_where));
    });
}

void SheetWatcher::CarriedPast(const std::string& routine, const std::string& description) noexcept
{
    Quietly([&] {
        if (routine == "SetDrawingData")
            m_lostRecord = description.empty() ? "it was not taken" : description;
        if (routine == kWriteSettingRoutine && m_lostSetting.empty())
            m_lostSetting = description;
        if (!description.empty())
            m_carriedPast = routine + ": " + description;
    });
}

void SheetWatcher::Reason(const std::string& text) noexcept
{
    Quietly([&] { m_reason = text; });
}

void SheetWatcher::Cancelled(const std::string& what) noexcept
{
    Quietly([&] { m_cancelled = what; });
}

std::string SheetWatcher::WhatWasCancelled() const
{
    if (m_save && m_save->pdfPath.empty() && m_save->errorText == "Cancelled.")
        return "the choice of a file name";
    // Somebody may have gone on without the choice: then no sheet failed.
    return !m_report.sheets.empty() && m_report.sheets.back().status >= 0 ? "" : m_cancelled;
}

std::string SheetWatcher::FailedSheet(const std::string& plotFailure) const
{
    if (m_report.sheets.empty() || m_report.sheets.back().status >= 0)
        return {};
    const SheetReport& sheet = m_report.sheets.back();
    std::string why = StatusText(sheet.status);
    const std::string& detail = !m_reason.empty() ? m_reason : !plotFailure.empty() ? plotFailure : m_carriedPast;
    if (!detail.empty())
        why += " (" + detail + ")";
    return fmt::format("sheet \"{}\": {}", sheet.name, why);
}

} // namespace sm::app
