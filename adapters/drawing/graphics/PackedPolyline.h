// SPDX-License-Identifier: GPL-3.0-or-later
// A plane polyline packed bit by bit, as entities' pictures hold it. For this room only.
#pragma once

#include "drawing/entities/Polylines.h"

#include <string_view>

namespace sm::drawing {

/// Fills vertices, bulges, widths, elevation, thickness, extrusion; false when the bytes end too early or hold more
/// vertices than they have room for.
bool ReadPackedPolyline(std::string_view bytes, PolylineData& polyline);

} // namespace sm::drawing
