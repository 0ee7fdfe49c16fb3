// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a layout of a drawing, lets the user pick points in it, and changes marks where they stand.
#pragma once

#include "beside/MarkBoard.h"
#include "beside/SheetList.h"
#include "beside/WindowMemory.h"
#include "cadhost/PointPicker.h"
#include "render/ReferenceOptions.h"

#include <functional>
#include <string>

namespace sm::scene {

struct DrawingWindowOptions {
    /// As the host has them; converters are those that the drawing was opened with.
    render::ReferenceOptions references;
    std::string shareFolder{}; ///< as the host has it
    /// What stands beside the form that asks for a pick: its marks are shown. Empty, or null: none are.
    std::function<beside::ISheetList*()> sheets{};
    /// The window's size and background; outlives the window. Null: nothing is remembered.
    beside::IWindowMemory* memory = nullptr;
};

/// What can be done with the drawing's window. Its tabs are the drawing's layouts in their order. A layout is recorded
/// when it is shown first; those shown lately are kept, with the view that the user left, until the drawing is
/// forgotten. Between the two corners of a rectangle the window stays as it is, and no tab can be turned.
class IDrawingWindow : public cadhost::IPointPicker, public beside::IMarkWindow {};

} // namespace sm::scene
