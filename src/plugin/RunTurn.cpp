// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/RunTurn.h"

#include "ports/IRunObserver.h"

#include <utility>

namespace sm {
namespace {

thread_local bool runUnderWay = false;

} // namespace

RunTurn::RunTurn(CallContext& context, const char* routine) noexcept : m_taken(!std::exchange(runUnderWay, true))
{
    if (!m_taken)
        context.surroundings.observer.CarriedPast(routine, "another conversion is under way");
}

RunTurn::~RunTurn()
{
    if (m_taken)
        runUnderWay = false;
}

} // namespace sm
