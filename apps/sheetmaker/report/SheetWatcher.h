// SPDX-License-Identifier: GPL-3.0-or-later
// Watches one conversion: what the report says of its sheets, and the progress line.
#pragma once

#include "ports/IRunObserver.h"
#include "report/RunReport.h"
#include "terminal/Console.h"

#include <functional>
#include <optional>
#include <utility>

namespace sm::app {

class SheetWatcher final : public IRunObserver {
public:
    /// Both outlive the watcher.
    SheetWatcher(DrawingReport& report, terminal::Console& console) : m_report(report), m_console(console) {}

    void Stage(const std::string& name) noexcept override;
    void SheetBegins(const std::string& layoutName, std::int32_t index, std::int32_t count) noexcept override;
    void SheetEnds(const std::string& layoutName, std::int32_t status, std::int32_t markCount) noexcept override;
    void Saved(const std::string& pdfPath, std::int32_t status, const std::string& errorText) noexcept override;
    void AnnotationsLost(const std::string& description) noexcept override;
    void CarriedPast(const std::string& routine, const std::string& description) noexcept override;

    /// A reason in plain words that came up on the way; the last before a sheet fails is the one that is told.
    void Reason(const std::string& text) noexcept;

    /// The user cancelled this, as "the choice of a paper"; what comes of it is no failure.
    void Cancelled(const std::string& what) noexcept;
    /// What the user cancelled, the choice of a file name included; empty: nothing.
    [[nodiscard]] std::string WhatWasCancelled() const;

    /// Path, status and error text of the save, when the run came that far.
    struct Save {
        std::string pdfPath, errorText;
        std::int32_t status = 0;
    };
    [[nodiscard]] const std::optional<Save>& LastSave() const { return m_save; }
    /// The last failing call that was carried past, with its routine; empty when none was.
    [[nodiscard]] const std::string& LastCarriedPast() const { return m_carriedPast; }
    /// Is called as each sheet begins: its name, its number from 1 and how many there are.
    void WhenSheetBegins(std::function<void(const std::string&, std::int32_t, std::int32_t)> call)
    {
        m_whenSheetBegins = std::move(call);
    }
    /// Is called once the settings dialog was confirmed, before the conversion that it may ask for.
    void WhenSettingsAreKept(std::function<void()> call) { m_whenSettingsAreKept = std::move(call); }
    /// The settings dialog was confirmed, and everything it held was handed to the settings and the drawing.
    [[nodiscard]] bool SettingsKept() const { return m_settingsKept; }
    /// Why the drawing didn't take a record; empty when it took all.
    [[nodiscard]] const std::string& LostRecord() const { return m_lostRecord; }
    /// Why one of the user's settings could not be stored; empty when all could.
    [[nodiscard]] const std::string& LostSetting() const { return m_lostSetting; }
    /// The sheet that failed and why; empty when none did.
    [[nodiscard]] std::string FailedSheet(const std::string& plotFailure) const;

private:
    DrawingReport& m_report;
    terminal::Console& m_console;
    std::optional<Save> m_save;
    std::string m_cancelled, m_reason, m_carriedPast, m_where, m_lostRecord, m_lostSetting;
    std::function<void()> m_whenSettingsAreKept;
    std::function<void(const std::string&, std::int32_t, std::int32_t)> m_whenSheetBegins;
    bool m_settingsKept = false;
    bool m_annotationsLost = false; ///< of the sheet at hand; told once
};

/// What a sheet's negative status means, as the end of a sentence.
std::string StatusText(std::int32_t status);

} // namespace sm::app
