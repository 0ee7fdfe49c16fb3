// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmProgress.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sm {
namespace {

FormTable ProgressTable()
{
    using enum ControlKind;
    return {
        ControlRow(FormWindow, "frmProgress", "", {0, 0, 230, 46}),
        ControlRow(Label, "lblStatus", "Status: Scanning for Hyperlinks and File Attributes", {7, 7, 216, 8}),
        ControlRow(ProgressBar, "prgStatus", "", {7, 21, 216, 12}),
        ControlRow(Timer, "tmeStatus", "", {}),
    };
}

} // namespace

frmProgress::frmProgress(FormSession& session) : Form(session, ProgressTable())
{
    On(Name(), FormEvent::Load, [this] { SetCaption(Name(), kProductTitle); });
    On(Name(), FormEvent::Activate, [this] {
        PumpEvents();
        if (const auto scan = std::exchange(Scan, nullptr))
            CarryPast(Session().context, "frmProgress", scan); // whatever it does, the window goes away
        Hide();
    });
    On(Name(), FormEvent::QueryClose, [this] {
        if (UnloadFlag)
            Hide();
    });
}

void frmProgress::Advance(double perCent)
{
    const auto whole = static_cast<std::int32_t>(std::clamp(std::isfinite(perCent) ? perCent : 0.0, 0.0, 100.0));
    if (whole == Control("prgStatus").value)
        return;
    SetProgress("prgStatus", whole);
    PumpEvents();
}

} // namespace sm
