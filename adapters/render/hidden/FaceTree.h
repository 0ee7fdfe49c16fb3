// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes of faces, sorted so that those near a line or an area are found without looking at all.
#pragma once

#include "render/ClipBox.h"

#include <cstdint>
#include <vector>

namespace sm::render {

/// A tree of boxes over the sheet; each knows how high its highest face reaches, and the higher half is asked first:
/// what lies on top hides most.
class FaceTree {
public:
    struct Item {
        Box2 box;
        double top = 0; ///< the highest z of the face
    };
    /// Sorts `items`; the number of an item is its place among them.
    void Build(const std::vector<Item>& items);

    /// Calls `visit(number)` for each item that reaches above `low` and that `near(box)` holds for, until it returns
    /// false.
    template <class Near, class Visit> void ForEach(double low, const Near& near, const Visit& visit) const
    {
        m_open.clear();
        if (!m_nodes.empty()) {
            m_open.push_back(0);
        }
        while (!m_open.empty()) {
            const Node node = m_nodes[m_open.back()];
            m_open.pop_back();
            if (node.top < low || !near(node.box)) {
                continue;
            }
            if (node.count == 0) {
                const bool firstIsHigher = m_nodes[node.first].top > m_nodes[node.first + 1].top;
                m_open.push_back(node.first + (firstIsHigher ? 1 : 0));
                m_open.push_back(node.first + (firstIsHigher ? 0 : 1));
                continue;
            }
            for (std::uint32_t i = node.first; i < node.first + node.count; ++i) {
                const Item& item = m_items[i];
                if (item.top >= low && near(item.box) && !visit(m_numbers[i])) {
                    return;
                }
            }
        }
    }

private:
    struct Node {
        Box2 box;
        double top = 0;
        std::uint32_t first = 0, count = 0; ///< of its items; without any, `first` is its first half
    };
    void Split(std::uint32_t node, std::vector<std::uint32_t>& order, const std::vector<Item>& items);
    void Measure(Node& node, const std::vector<std::uint32_t>& order, const std::vector<Item>& items) const;

    std::vector<Node> m_nodes;
    std::vector<Item> m_items;                 ///< in the tree's order
    std::vector<std::uint32_t> m_numbers;      ///< of those items
    mutable std::vector<std::uint32_t> m_open; ///< kept so that asking allocates nothing
};

} // namespace sm::render
