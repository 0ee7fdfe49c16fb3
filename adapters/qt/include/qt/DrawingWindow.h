// The window that shows a layout of a drawing and lets the user pick points in it.
#pragma once

#include "cadhost/PointPicker.h"
#include "render/References.h"

#include <memory>

namespace sm::qt {

struct DrawingWindowOptions {
    /// As the host has them; converters are those that the drawing was opened with.
    render::ReferenceOptions references;
    std::string shareFolder{}; ///< as the host has it
};

/// To be used while a Screen is open, from its thread; may be made before and may outlive it. Without a screen each
/// pick throws. A drawing is recorded at its first pick and kept until another layout is picked in or it is forgotten.
/// Between the two corners of a rectangle the window stays as it is.
std::unique_ptr<cadhost::IPointPicker> CreateDrawingWindow(const DrawingWindowOptions& options);

} // namespace sm::qt
