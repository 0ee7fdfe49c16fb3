// SPDX-License-Identifier: GPL-3.0-or-later
// How much of each pixel an area takes: exact for one outline, so that edges are smooth.
#pragma once

#include "render/Canvas.h"
#include "scene/PixelImage.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace sm::scene {

class Coverage {
public:
    /// Begins an area, of which what lies in `box` counts.
    void Begin(const PixelBox& box);
    /// Each sub-path, of lines alone, is closed.
    void Add(const render::Path& path);
    /// A polygon that is turned so that it adds to others that were added so, whichever way it runs.
    void AddTurned(std::span<const Vec2> corners);

    /// Calls `span(y, x, count, opacity)` for pixels side by side in a row that take the same part of 255, row by row.
    /// The area is empty afterwards.
    template <class Span> void Sweep(render::FillRule rule, Span span)
    {
        for (int y = m_first; y < m_last; ++y)
            SweepRow(y, rule, span);
        m_first = m_last = 0;
    }

private:
    /// What an edge leaves in one pixel: of the pixel itself, and of all to its right.
    struct Cell {
        int x = 0;
        float own = 0, beyond = 0;
    };
    void AddLine(Vec2 a, Vec2 b);
    void AddInRow(int y, Vec2 a, Vec2 b, double turn);
    void AddWithin(std::vector<Cell>& row, Vec2 a, Vec2 b, double turn) const;
    [[nodiscard]] std::vector<Cell>& Row(int y) { return m_rows[static_cast<std::size_t>(y - m_box.top)]; }
    static int Opacity(double wound, render::FillRule rule);

    template <class Span> void SweepRow(int y, render::FillRule rule, Span span)
    {
        std::vector<Cell>& row = Row(y);
        std::sort(row.begin(), row.end(), [](const Cell& a, const Cell& b) { return a.x < b.x; });
        double wound = 0;
        int x = m_box.left;
        const auto pass = [&](int to) {
            const int opacity = Opacity(wound, rule);
            if (opacity > 0 && to > x)
                span(y, x, to - x, opacity);
        };
        for (std::size_t i = 0; i < row.size();) {
            const int at = row[i].x;
            pass(at);
            double own = wound;
            for (; i < row.size() && row[i].x == at; ++i) {
                own += static_cast<double>(row[i].own);
                wound += static_cast<double>(row[i].beyond);
            }
            if (const int opacity = Opacity(own, rule); opacity > 0)
                span(y, at, 1, opacity);
            x = at + 1;
        }
        pass(m_box.right);
        row.clear();
    }

    PixelBox m_box;
    int m_first = 0, m_last = 0; ///< rows that hold anything
    std::vector<std::vector<Cell>> m_rows;
};

} // namespace sm::scene
