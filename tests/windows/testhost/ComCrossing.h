// SPDX-License-Identifier: GPL-3.0-or-later
// The road to the plug-in that leads through COM: every object of the doubles is offered late-bound and driven by the
// adapters of Windows.
#pragma once

#include "doubles/Crossing.h"

namespace sm::testhost {

/// Direct: calls go straight to the objects. Apart: the objects live in another apartment, so that every call is
/// marshalled as between processes.
enum class Road { Direct, Apart };

/// For the thread that calls, which becomes a single-threaded apartment. One at a time.
std::unique_ptr<Crossing> MakeComCrossing(Road road);

} // namespace sm::testhost
