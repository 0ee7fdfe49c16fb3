// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the point that the cursor is drawn to: ends, middles, centres and intersections.
#pragma once

#include "scene/BoxTree.h"
#include "scene/DisplayList.h"
#include "scene/SnapShapes.h"

#include <optional>
#include <vector>

namespace sm::scene {

enum class SnapKind : std::uint8_t { End, Middle, Center, Intersection };

/// "End point", "Middle point", "Centre point", "Intersection".
const char* SnapName(SnapKind kind);

struct Snap {
    SnapKind kind = SnapKind::End;
    Vec2 point; ///< scene millimetres
};

class SnapIndex {
public:
    SnapIndex() = default;
    /// Shapes show inside the boxes of `clips` only.
    SnapIndex(SnapShapes shapes, std::vector<Box2> clips);

    /// The nearest point to `at` within `reach` millimetres; a circle's centre also where `at` is near the circle and
    /// nothing else is. Of very many shapes in reach some are looked at.
    [[nodiscard]] std::optional<Snap> Find(Vec2 at, double reach) const;
    [[nodiscard]] std::size_t Size() const { return m_shapes.All().size(); }
    [[nodiscard]] std::size_t Bytes() const { return m_shapes.Bytes() + m_tree.Bytes(); }

private:
    SnapShapes m_shapes;
    std::vector<Box2> m_clips;
    BoxTree m_tree;
};

} // namespace sm::scene
