// SPDX-License-Identifier: GPL-3.0-or-later
// A plot style table made ready for drawing: one pen for each colour index or named style.
#pragma once

#include "drawing/entities/Hatches.h"
#include "ink/DashPattern.h"
#include "render/Canvas.h"
#include "render/PlotStyleTable.h"
#include "render/Style.h"

#include <span>

namespace sm::render {

/// What a plot style makes of a line or fill. The default changes nothing.
struct PlotPen {
    std::optional<std::uint32_t> color; ///< 0xRRGGBB in place of the object's
    bool gray = false;
    std::int32_t screen = 100;
    std::optional<double> width; ///< mm
    std::optional<LineCap> cap;
    std::optional<LineJoin> join;
    PlotFill fill = PlotFill::Object;
    bool ownLinetype = false; ///< `pattern` takes the place of the object's line type
    DashPattern pattern;
    double patternUnit = 1; ///< mm for one unit of `pattern`

    /// What `color` (0xTTRRGGBB) becomes; its transparency stays.
    [[nodiscard]] std::uint32_t ColorOf(std::uint32_t objectColor) const;
};

class PlotPens {
public:
    /// Every pen changes nothing.
    PlotPens();
    /// `names`: the drawing's named styles, to which a table by name is matched, letter case aside. `codePage` as
    /// $DWGCODEPAGE spells it: of the table's names, where they aren't UTF-8.
    PlotPens(const PlotStyleTable& table, const std::vector<drawing::PlotStyleName>& names,
             const std::string& codePage);

    [[nodiscard]] const PlotPen& Of(const Style& style) const
    {
        const std::size_t place = m_byColor ? static_cast<std::size_t>(style.index) : style.plotStyle;
        return m_pens[place < m_pens.size() ? place : 0];
    }
    /// A style asks for ends or joins of diamonds, which are drawn round.
    [[nodiscard]] bool HasDiamonds() const { return m_hasDiamonds; }
    /// Named styles of the drawing that the table doesn't have; they change nothing.
    [[nodiscard]] const std::vector<std::string>& Missing() const { return m_missing; }

private:
    bool m_byColor = true;
    bool m_hasDiamonds = false;
    std::vector<PlotPen> m_pens; ///< by colour: 0 is for true colours; by name: 0 is "Normal"
    std::vector<std::string> m_missing;
};

/// The plotter's own line type 0 to 30 in units of the style's pattern size; continuous for others.
DashPattern PlotLinetype(std::int32_t number, bool adaptive);

/// The lines of a fill on paper, in millimetres, and how wide they are. Empty for a solid one.
struct FillLines {
    std::span<const drawing::HatchLine> families;
    double width = 0;
};
FillLines LinesOf(PlotFill fill);

} // namespace sm::render
