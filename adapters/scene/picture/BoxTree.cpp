// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/BoxTree.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sm::scene {
namespace {

float Down(double value)
{
    const auto narrow = static_cast<float>(value);
    return static_cast<double>(narrow) > value ? std::nextafter(narrow, -std::numeric_limits<float>::infinity())
                                               : narrow;
}

float Up(double value)
{
    const auto narrow = static_cast<float>(value);
    return static_cast<double>(narrow) < value ? std::nextafter(narrow, std::numeric_limits<float>::infinity())
                                               : narrow;
}

std::uint32_t Spread(std::uint32_t value)
{
    value = (value | value << 8) & 0x00FF00FF;
    value = (value | value << 4) & 0x0F0F0F0F;
    value = (value | value << 2) & 0x33333333;
    return (value | value << 1) & 0x55555555;
}

/// Where a box stands on a curve that keeps neighbours together: its middle's bits, x and y by turns.
class Order {
public:
    explicit Order(const Box2& all) : m_all(all) {}
    [[nodiscard]] std::uint32_t Of(const Box2& box) const
    {
        return Spread(Step(box.min.x + box.max.x, m_all.min.x, m_all.Width())) |
               Spread(Step(box.min.y + box.max.y, m_all.min.y, m_all.Height())) << 1;
    }

private:
    static std::uint32_t Step(double twice, double from, double size)
    {
        const double part = size > 0 ? (twice / 2 - from) / size : 0;
        return static_cast<std::uint32_t>(std::clamp(part, 0.0, 1.0) * 65535);
    }
    Box2 m_all;
};

} // namespace

BoxTree::BoxTree(const std::vector<Box2>& boxes)
{
    Box2 all;
    for (const Box2& box : boxes)
        all.Add(box);
    const Order order(all);
    std::vector<std::pair<std::uint32_t, std::uint32_t>> places;
    for (std::uint32_t i = 0; i < boxes.size(); ++i) {
        if (!boxes[i].Empty())
            places.emplace_back(order.Of(boxes[i]), i);
    }
    std::sort(places.begin(), places.end());
    m_nodes.reserve(places.size() + places.size() / (kChildren - 1) + 8);
    for (const auto& [place, i] : places) {
        const Box2& box = boxes[i];
        m_nodes.push_back({Down(box.min.x), Down(box.min.y), Up(box.max.x), Up(box.max.y), i});
    }
    m_levels = {0, m_nodes.size()};
    while (m_levels.back() - m_levels[m_levels.size() - 2] > 1) {
        const std::size_t begin = m_levels[m_levels.size() - 2];
        const std::size_t end = m_levels.back();
        for (std::size_t i = begin; i < end; i += kChildren)
            m_nodes.push_back(Around(m_nodes, i, std::min(i + kChildren, end)));
        m_levels.push_back(m_nodes.size());
    }
}

BoxTree::Node BoxTree::Around(const std::vector<Node>& nodes, std::size_t first, std::size_t end)
{
    Node node = nodes[first];
    node.first = static_cast<std::uint32_t>(first);
    for (std::size_t i = first + 1; i < end; ++i) {
        node.left = std::min(node.left, nodes[i].left);
        node.bottom = std::min(node.bottom, nodes[i].bottom);
        node.right = std::max(node.right, nodes[i].right);
        node.top = std::max(node.top, nodes[i].top);
    }
    return node;
}

void BoxTree::Search(const Box2& box, const std::function<bool(std::uint32_t)>& found) const
{
    if (m_nodes.empty() || box.Empty())
        return;
    const float left = Down(box.min.x);
    const float bottom = Down(box.min.y);
    const float right = Up(box.max.x);
    const float top = Up(box.max.y);
    struct Visit {
        std::size_t node, level;
    };
    std::vector<Visit> open{{m_nodes.size() - 1, m_levels.size() - 2}};
    while (!open.empty()) {
        const Visit at = open.back();
        open.pop_back();
        const Node& node = m_nodes[at.node];
        if (node.left > right || node.right < left || node.bottom > top || node.top < bottom)
            continue;
        if (at.level == 0) {
            if (!found(node.first))
                return;
            continue;
        }
        const std::size_t end = std::min<std::size_t>(node.first + kChildren, m_levels[at.level]);
        for (std::size_t i = node.first; i < end; ++i)
            open.push_back({i, at.level - 1});
    }
}

} // namespace sm::scene
