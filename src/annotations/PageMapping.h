// SPDX-License-Identifier: GPL-3.0-or-later
// How drawing coordinates of a layout land on its PDF page.
#pragma once

#include "annotations/MarkState.h"

namespace sm {

/// The mapping of the document's active layout. Centring and rotation are not looked at. Throws HostError, also when
/// the layout's scale has a denominator of 0, or one so small that the mapping would not be finite.
PageMapping ComputePageMapping(IAcadDocument& document);

} // namespace sm
