// SPDX-License-Identifier: GPL-3.0-or-later
// What became of a drawing's entities, and what was drawn otherwise.
#pragma once

#include "render/NotDrawnKind.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {
class Drawing;
struct EntityRecord;
} // namespace sm::drawing

namespace sm::render {

/// What became of each entity of the drawing over a run; the best outcome counts.
enum class Outcome : std::uint8_t {
    NotReached, ///< in a space or block that no plotted page shows
    Hidden,     ///< layer off, frozen or not plotted; invisible; viewport off; an attribute definition
    OffPage,    ///< nothing of it lies on the plotted area
    NotDrawn,   ///< of a kind, or with content, that can't be drawn
    Drawn
};

/// Outcomes by entity, and what was not drawn by kind and layer. `Outcomes` sums up to the entities read.
class RenderReport {
public:
    explicit RenderReport(const drawing::Drawing& drawing);
    void Note(const drawing::EntityRecord& record, Outcome outcome);
    [[nodiscard]] std::uint64_t Count(Outcome outcome) const;
    /// Of the entities that stand in one block, those in blocks that it inserts aside.
    [[nodiscard]] std::uint64_t CountIn(std::uint32_t block, Outcome outcome) const;
    /// Entities whose best outcome is NotDrawn, by kind and layer.
    [[nodiscard]] std::vector<NotDrawnKind> NotDrawn() const;
    /// Something drawn otherwise than the drawing has it ("hatch pattern too dense, lines left out").
    void Remark(std::string_view text);
    /// How often each remark was made.
    [[nodiscard]] const std::map<std::string, std::uint64_t, std::less<>>& Remarks() const { return m_remarks; }

private:
    const drawing::Drawing& m_drawing;
    std::vector<Outcome> m_outcomes;
    std::map<std::string, std::uint64_t, std::less<>> m_remarks;
};

} // namespace sm::render
