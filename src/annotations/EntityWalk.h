// SPDX-License-Identifier: GPL-3.0-or-later
// The walk over a sheet's entities that finds hyperlinks and block attributes.
#pragma once

#include "annotations/MarkState.h"

#include <functional>
#include <vector>

namespace sm {

class EntityWalk {
public:
    /// `advance` is told the per cent done of the container that `WalkEntities` was given.
    explicit EntityWalk(MarkState& state, std::function<void(double)> advance = {});

    /// Walks one collection: a sheet's space with base (0, 0), or a block definition with its reference's own insertion
    /// point. True when the walk finished; after an error false, and `Error` says why. Never throws.
    bool WalkEntities(IAcadBlock& container, double baseX, double baseY);
    [[nodiscard]] const std::string& Error() const { return m_error; }

private:
    void Walk(IAcadBlock& container, double baseX, double baseY);
    void Visit(IAcadEntity& entity, double baseX, double baseY);
    void TransferHyperlink(IAcadEntity& entity, IAcadHyperlinks& links, double baseX, double baseY);
    void TransferAttributes(IAcadBlockReference& reference);
    void HandOver(const std::string& prefix, IAcadAttribute& attribute);
    void Enter(IAcadBlockReference& reference);
    [[nodiscard]] bool Transfers(const std::string& objectName) const;

    MarkState& m_state;
    std::function<void(double)> m_advance;
    std::vector<std::string> m_open; ///< blocks being walked, outermost first
    std::uint64_t m_visited = 0;
    std::string m_error;
};

} // namespace sm
