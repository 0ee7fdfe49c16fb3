// SPDX-License-Identifier: GPL-3.0-or-later
// The sweep that makes every call of an operation fail in turn, and what must hold after each run.
#pragma once

#include "doubles/TestHouse.h"

#include <functional>
#include <string>

namespace sm {

/// Whose calls are counted and made to fail.
enum class FaultySide { Everything, Host, Library, Registry, Files };
std::string NameOf(FaultySide side);

struct SweptOperation {
    std::function<void(HouseParts&)> prepare;
    std::function<void(HouseParts&)> run;
    /// With nothing failing any more.
    std::function<void(HouseParts&)> after;
};

/// Runs the operation in a fresh house with call 1 of `side` failing, then 2, until nothing fails; once, and from that
/// call onwards; of `Everything` each call that may give nothing does so once, too. Each run must throw nothing. Fails
/// the test when no call was made to fail at all.
void SweepFaults(FaultySide side, const SweptOperation& operation);

/// No host object, no drawing, no log is held, and every log that was opened was asked to close.
void ExpectCallEnded(HouseParts& house);

/// The plotter folder is the user's own, or waits for the next reset, or the reset tried both folders in vain or set
/// the host's default one, as it is to do; or the host said that it had none.
void ExpectPlotterFolderKept(HouseParts& house);

} // namespace sm
