// SPDX-License-Identifier: GPL-3.0-or-later
// Where the sheet of a paper layout lies round what is drawn on it.
#pragma once

#include "base/Geometry.h"

namespace sm::drawing {
class Drawing;
struct Layout;
} // namespace sm::drawing

namespace sm::cadhost {

/// Boxes are in the layout's own units.
struct SheetPlace {
    Box2 paper, printable;
    double millimetres = 1;     ///< of paper for a unit, at the layout's plot scale
    double lineweightScale = 1; ///< of the pens on that paper
    bool lineweights = true, viewportsFirst = true, viewportBorders = false; ///< as the layout is plotted
};

/// As the host would plot the layout with plot type Layout: paper that the file doesn't name is assumed.
SheetPlace PlaceOfSheet(const drawing::Drawing& drawing, const drawing::Layout& layout);

} // namespace sm::cadhost
