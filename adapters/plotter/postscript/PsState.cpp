// SPDX-License-Identifier: GPL-3.0-or-later
// The pen, the colours and the layer of what is written: each told when it changes.
#include "fonts/PenWidth.h"
#include "postscript/PsWriter.h"

#include <algorithm>

namespace sm::plotter {

void PsWriter::SetTransparency(std::uint32_t color)
{
    if (color >> 24 != m_state.transparency) {
        m_state.transparency = color >> 24;
        m_body.Append("/A" + std::to_string(255 - m_state.transparency) + " gs\n");
    }
}

void PsWriter::EnterLayer()
{
    if (!m_keepsLayers || m_layer == m_wantedLayer) {
        return;
    }
    EndStroke();
    m_body.Append(m_layer ? "EMC\n/OC /L" : "/OC /L");
    m_body.Append(std::to_string(m_wantedLayer) + " BDC\n");
    m_layer = m_wantedLayer;
    m_layers.insert(m_wantedLayer);
}

void PsWriter::SetColor(std::uint32_t color, bool strokes)
{
    SetTransparency(color);
    color &= 0xFFFFFF;
    // PostScript has one colour where PDF has two: one of them is written whenever either reading needs it.
    std::uint32_t& inPdf = strokes ? m_state.stroke : m_state.fill;
    if (m_state.color == color && inPdf == color) {
        return;
    }
    m_state.color = inPdf = color;
    const std::uint32_t red = color >> 16 & 0xFF, green = color >> 8 & 0xFF, blue = color & 0xFF;
    WriteNumber(red / 255.0, 3);
    if (red == green && green == blue) {
        Write(strokes ? "G" : "g");
        return;
    }
    WriteNumber(green / 255.0, 3);
    WriteNumber(blue / 255.0, 3);
    Write(strokes ? "RG" : "rg");
}

void PsWriter::SetPen(const render::StrokeStyle& style)
{
    SetColor(style.color, true);
    const double width = std::max(style.width > 0 ? style.width : kThinnestPen, m_onePen) * m_units;
    if (m_state.width != width) {
        m_state.width = width;
        WriteNumber(width, 2);
        Write("w");
    }
    if (const int cap = static_cast<int>(style.cap); m_state.cap != cap) {
        m_state.cap = cap;
        WriteNumber(cap, 1);
        Write("J");
    }
    if (const int join = static_cast<int>(style.join); m_state.join != join) {
        m_state.join = join;
        WriteNumber(join, 1);
        Write("j");
    }
}

} // namespace sm::plotter
