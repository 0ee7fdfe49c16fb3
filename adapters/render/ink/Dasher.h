// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts paths into the dashes of a line type.
#pragma once

#include "geometry/Cubic.h"
#include "ink/DashPattern.h"
#include "render/Canvas.h"

#include <cstdint>
#include <span>
#include <vector>

namespace sm::render {

/// Where a text or shape of a line type stands on a path.
struct SymbolPlace {
    std::uint32_t element = 0; ///< of the line type
    Vec2 at, along;            ///< `along` has length 1
};

/// Dashes run from the start of each sub-path to its end: the first dash is stretched or shortened at both ends by the
/// same amount, never below its half, so that a whole number of periods lies between. A run shorter than one period
/// is drawn whole. Keeps its buffers between calls.
class Dasher {
public:
    /// Appends the dashes of `path` to `out`, with `scale` path units for one line type unit. The pattern starts anew
    /// at each verb of `breaks` (ascending). What lies off `visible` may be left out.
    void Cut(const Path& path, std::span<const std::uint32_t> breaks, const DashPattern& pattern, double scale,
             const Box2& visible, Path& out);
    /// The symbols on the path last cut: for a pattern that has them.
    [[nodiscard]] const std::vector<SymbolPlace>& Symbols() const { return m_symbols; }
    void ForgetSymbols() { m_symbols.clear(); }

private:
    struct Piece {
        Cubic curve; ///< of a line: the first and the last point
        bool straight = true;
        double length = 0;
    };
    void AddPiece(const Piece& piece);
    void FlushRun();
    void CutPiece(const Piece& piece, double begin);
    void CutLine(const Piece& piece, double begin);
    void CutCurve(const Cubic& curve, double length, double begin, int depth);
    template <class Emit> void ForEachDash(double begin, double end, const Emit& emit) const;
    template <class Emit> void DashesOfPeriod(double k, const Emit& emit) const;
    void Start(Vec2 point);
    void PlaceSymbols(const Piece& piece, double begin, int depth);
    /// On the part of the piece that lies between two lengths along it.
    void PlaceSymbolsWithin(const Piece& piece, double begin, double shownFrom, double shownTo);
    void PlaceSymbol(const Piece& piece, double along, std::uint32_t element);

    std::vector<Piece> m_run;
    double m_runLength = 0;
    const DashPattern* m_pattern = nullptr;
    double m_scale = 1, m_shift = 0, m_periods = 0;
    Box2 m_visible;
    Path* m_out = nullptr;
    std::vector<SymbolPlace> m_symbols;
};

} // namespace sm::render
