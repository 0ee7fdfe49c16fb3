// SPDX-License-Identifier: GPL-3.0-or-later
// Carrying on past a failing call with the run's observer told of it.
#pragma once

#include "plugin/Attempt.h"
#include "plugin/CallContext.h"
#include "ports/IRunObserver.h"

#include <utility>

namespace sm {

/// As CarryOn; `routine` names the caller for the observer, which the error is told to.
template <class Call> auto CarryPast(CallContext& context, const char* routine, Call&& call) noexcept
{
    return CarryOn(std::forward<Call>(call), [&](const std::string& description) {
        context.surroundings.observer.CarriedPast(routine, description);
    });
}

} // namespace sm
