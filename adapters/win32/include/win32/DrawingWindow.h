// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a layout of a drawing and lets the user pick points in it.
#pragma once

#include "beside/SheetList.h"
#include "beside/WindowMemory.h"
#include "cadhost/PointPicker.h"
#include "render/References.h"

#include <functional>
#include <memory>
#include <string>

#include <windef.h>

namespace sm::win32 {

struct DrawingWindowOptions {
    /// As the host has them; converters are those that the drawing was opened with.
    render::ReferenceOptions references;
    std::string shareFolder{}; ///< as the host has it
    /// What stands beside the form that asks for a pick: its marks are shown. Empty, or null: none are.
    std::function<beside::ISheetList*()> sheets{};
    /// The window's size and background; outlives the window. Null: nothing is remembered.
    beside::IWindowMemory* memory = nullptr;
};

/// To be used on one thread, which looks at its messages while a point is picked and afterwards. Its tabs are the
/// drawing's layouts in their order. A layout is recorded when it is shown first; those shown lately are kept, with the
/// view that the user left, until the drawing is forgotten. Between the two corners of a rectangle the window stays as
/// it is, and no tab can be turned.
std::unique_ptr<cadhost::IPointPicker> CreateDrawingWindow(const DrawingWindowOptions& options);

/// What forms and boxes may be modal over: the thread's active window, or the form that it stands beside; not the
/// drawing's, which goes by itself.
HWND ActiveOwner();

} // namespace sm::win32
