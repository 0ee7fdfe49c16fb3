// Obeys the steps of the picture that an entity brings along. For this room only.
#pragma once

#include "drawing/entities/Graphics.h"
#include "paint/Painter.h"

#include <vector>

namespace sm::render {

/// Draws with the painter's own style and frame, and puts the frame back at its end.
class GraphicsPainter {
public:
    GraphicsPainter(Painter& painter, const drawing::GraphicsData& data);
    ~GraphicsPainter();
    GraphicsPainter(const GraphicsPainter&) = delete;
    GraphicsPainter& operator=(const GraphicsPainter&) = delete;
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

    Painter& m_painter;
    const drawing::GraphicsData& m_data;
    const Frame* m_base;
    Frame m_frame;
    drawing::Entity m_properties;
    std::vector<Projection> m_kept;
    bool m_filled = false;
};

} // namespace sm::render
