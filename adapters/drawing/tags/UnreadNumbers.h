// SPDX-License-Identifier: GPL-3.0-or-later
// Where a text file says something else than the number that belongs there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <set>

namespace sm::drawing {

/// Entities are read as often as they are drawn, by several threads: a line counts once.
class UnreadNumbers {
public:
    struct Lines {
        std::uint32_t count = 0, first = 0;
    };

    void Add(std::uint32_t line)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_lines.size() < kMost)
            m_lines.insert(line);
    }
    /// How many lines came along since it was asked last, and the first line of all.
    Lines TakeNew()
    {
        const std::scoped_lock lock(m_mutex);
        const std::size_t told = m_told;
        m_told = m_lines.size();
        return {static_cast<std::uint32_t>(m_told - told), m_lines.empty() ? 0 : *m_lines.begin()};
    }

private:
    static constexpr std::size_t kMost = 100'000;
    std::mutex m_mutex;
    std::set<std::uint32_t> m_lines;
    std::size_t m_told = 0;
};

} // namespace sm::drawing
