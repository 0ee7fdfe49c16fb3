// SPDX-License-Identifier: GPL-3.0-or-later
// Which of many boxes overlap one: a packed tree over boxes that don't change.
#pragma once

#include "base/Geometry.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace sm::scene {

class BoxTree {
public:
    BoxTree() = default;
    /// Empty boxes are never found.
    explicit BoxTree(const std::vector<Box2>& boxes);

    /// Calls `found` with the number of each box that may overlap `box`, touching included: boxes are kept in 32 bits,
    /// rounded outwards. In no particular order; false from `found` ends the search.
    void Search(const Box2& box, const std::function<bool(std::uint32_t)>& found) const;
    [[nodiscard]] std::size_t Bytes() const { return m_nodes.capacity() * sizeof(Node); }

private:
    struct Node {
        float left = 0, bottom = 0, right = 0, top = 0;
        std::uint32_t first = 0; ///< of its children; of a leaf, the number of its box
    };
    static Node Around(const std::vector<Node>& nodes, std::size_t first, std::size_t end);

    static constexpr std::size_t kChildren = 16;
    std::vector<Node> m_nodes;         ///< the leaves, then level by level up to the root
    std::vector<std::size_t> m_levels; ///< where each level begins; the last entry is the end
};

} // namespace sm::scene
