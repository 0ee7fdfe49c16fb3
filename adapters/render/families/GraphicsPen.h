// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that an entity brings along, drawn step by step.
#pragma once

#include "drawing/entities/Graphics.h"
#include "polylines/PolylinePen.h"

#include <vector>

namespace sm::render {

/// Obeys the steps of the picture that an entity brings along: changes the context's style and frame, and puts the
/// frame back at its end.
class GraphicsPen {
public:
    GraphicsPen(PaintContext& context, PolylinePen& polylines, const drawing::GraphicsData& data);
    ~GraphicsPen();
    GraphicsPen(const GraphicsPen&) = delete;
    GraphicsPen& operator=(const GraphicsPen&) = delete;
    void Draw();

private:
    bool Change(const drawing::Graphic& step);
    void Push(const drawing::Graphic& step);
    void DrawStep(const drawing::Graphic& step);
    void DrawArc(const drawing::Graphic& step);
    void DrawPoints(const drawing::Graphic& step);
    void DrawMesh(const drawing::Graphic& step);
    void DrawShell(const drawing::Graphic& step);
    void DrawText(const drawing::Graphic& step);
    void Finish(bool filled);

    PaintContext& m_context;
    PolylinePen& m_polylines;
    const drawing::GraphicsData& m_data;
    const Frame* m_base;
    Frame m_frame;
    drawing::Entity m_properties;
    std::vector<Projection> m_kept;
    bool m_filled = false;
};

} // namespace sm::render
