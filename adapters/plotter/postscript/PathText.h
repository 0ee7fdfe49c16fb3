// SPDX-License-Identifier: GPL-3.0-or-later
// The sub-paths of a stroke, fill or clip while they are written.
#pragma once

#include "postscript/BodyText.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sm::plotter {

/// A place on the page in whole units.
struct Dot {
    std::int32_t x = 0, y = 0;
    friend bool operator==(const Dot&, const Dot&) = default;
};

/// Collects operators that construct one path. All sub-paths of a stroke are painted at once, so that they may come in
/// any order: sorted by where they begin, neighbours share digits, which makes a compressed page of lines 4 to 8 %
/// smaller.
class PathText {
public:
    /// Begins a sub-path.
    void MoveTo(Dot p);
    void LineTo(Dot p) { Point(p, 'l'); }
    void CubicTo(Dot a, Dot b, Dot c);
    void Close();
    /// Hands everything over and is empty. `sorted`: the sub-paths by their starts, from left to right in 256
    /// columns.
    void WriteTo(BodyText& body, bool sorted);

private:
    struct SubPath {
        std::int32_t x = 0;   ///< of its start
        std::size_t from = 0; ///< into the text
    };
    struct Piece {
        std::size_t from = 0, length = 0;
    };
    char* Room(std::size_t bytes);
    void Point(Dot p, char op);
    void Sort();

    std::vector<char> m_text;
    std::size_t m_used = 0;
    std::vector<SubPath> m_parts;
    std::vector<Piece> m_sorted;
};

} // namespace sm::plotter
