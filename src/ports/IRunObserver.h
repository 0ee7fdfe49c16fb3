// SPDX-License-Identifier: GPL-3.0-or-later
// Tells what a run is doing, as it happens. It has no effect on the run and never throws.
#pragma once

#include <cstdint>
#include <string>

namespace sm {

class IRunObserver {
public:
    virtual ~IRunObserver() = default;
    /// "layouts", "plot", "annotations", "save", ...; "settings" once the settings dialog was confirmed and everything
    /// in it was kept.
    virtual void Stage(const std::string& name) noexcept = 0;
    virtual void SheetBegins(const std::string& layoutName, std::int32_t index, std::int32_t count) noexcept = 0;
    virtual void SheetEnds(const std::string& layoutName, std::int32_t status, std::int32_t markCount) noexcept = 0;
    /// Status of `SaveToPdf`, or what kept the run from saving.
    virtual void Saved(const std::string& pdfPath, std::int32_t status, const std::string& errorText) noexcept = 0;
    /// Annotations of the sheet that has begun are not on its page, and why. A sheet may lose some more than once.
    virtual void AnnotationsLost(const std::string& description) noexcept = 0;
    /// A failing call that was carried past: which routine, and the error's description.
    virtual void CarriedPast(const std::string& routine, const std::string& description) noexcept = 0;
};

} // namespace sm
