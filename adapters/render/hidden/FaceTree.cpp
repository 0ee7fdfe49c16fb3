// SPDX-License-Identifier: GPL-3.0-or-later
#include "hidden/FaceTree.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace sm::render {

void FaceTree::Build(const std::vector<Item>& items)
{
    m_nodes.clear();
    std::vector<std::uint32_t> order(items.size());
    std::iota(order.begin(), order.end(), 0U);
    if (!items.empty()) {
        m_nodes.push_back({{}, 0, 0, static_cast<std::uint32_t>(items.size())});
    }
    for (std::uint32_t node = 0; node < m_nodes.size(); ++node) {
        Measure(m_nodes[node], order, items);
        Split(node, order, items);
    }
    m_items.clear();
    for (const std::uint32_t number : order) {
        m_items.push_back(items[number]);
    }
    m_numbers = std::move(order);
}

void FaceTree::Measure(Node& node, const std::vector<std::uint32_t>& order, const std::vector<Item>& items) const
{
    node.top = -std::numeric_limits<double>::infinity();
    for (std::uint32_t i = node.first; i < node.first + node.count; ++i) {
        node.box.Add(items[order[i]].box);
        node.top = std::max(node.top, items[order[i]].top);
    }
}

void FaceTree::Split(std::uint32_t at, std::vector<std::uint32_t>& order, const std::vector<Item>& items)
{
    constexpr std::uint32_t kFew = 4;
    const Node node = m_nodes[at];
    if (node.count <= kFew) {
        return;
    }
    const bool wide = node.box.Width() > node.box.Height();
    const auto middle = [&](std::uint32_t i) {
        const Box2& box = items[i].box;
        return wide ? box.min.x + box.max.x : box.min.y + box.max.y;
    };
    const std::uint32_t half = node.count / 2;
    const auto begin = order.begin() + node.first;
    std::nth_element(begin, begin + half, begin + node.count,
                     [&](std::uint32_t a, std::uint32_t b) { return middle(a) < middle(b); });
    m_nodes[at].first = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes[at].count = 0;
    m_nodes.push_back({{}, 0, node.first, half});
    m_nodes.push_back({{}, 0, node.first + half, node.count - half});
}

} // namespace sm::render
