// SPDX-License-Identifier: GPL-3.0-or-later
// How much a sheet may cost: blocks that hold each other, and entities of few bytes that ask for endless lines, make
// more of a small file than any sheet can show. Shared by a run and those over its external references.
#pragma once

#include <cstdint>
#include <set>

namespace sm::render {

/// For each entity of a drawing: it may stand in blocks that several views show.
inline constexpr std::uint64_t kExpansionPerEntity = 32;

class WorkBudget {
public:
    static constexpr std::uint64_t kMostSteps = 20'000'000; ///< 400 MB of page content

    /// `entities`: that blocks may unfold to in all; `steps`: see TakeSteps.
    explicit WorkBudget(std::uint64_t entities, std::uint64_t steps = kMostSteps) : m_entities(entities), m_steps(steps)
    {
    }

    /// False, and nothing left, when it is more than what is left. An empty block costs something as well.
    bool TakeEntities(std::uint64_t count)
    {
        const bool enough = count < m_entities;
        m_entities = enough ? m_entities - count : 0;
        return enough;
    }
    /// What `source` holds may be shown in several views; the first call for it alone counts.
    void Grant(const void* source, std::uint64_t entities)
    {
        m_entities += m_granted.insert(source).second ? entities : 0;
    }

    /// `steps`: verbs of paths, or what costs as much, about a microsecond of plotting. `length`: bytes of the entity
    /// they are spent on, which a space's own entities have a number of steps for. False for the call that takes the
    /// last ones.
    bool TakeSteps(std::uint64_t steps, std::uint64_t length)
    {
        if (m_steps == 0) {
            return true;
        }
        const std::uint64_t own = m_depth == 0 ? kFree + kFreePerByte * length : 0;
        const std::uint64_t cost = (steps > own ? steps - own : 0) + (m_depth == 0 ? 0 : length / kBytesAStep);
        m_steps = cost < m_steps ? m_steps - cost : 0;
        return m_steps > 0;
    }
    [[nodiscard]] bool HasSteps() const { return m_steps > 0; }
    [[nodiscard]] bool IsSpent() const { return m_entities == 0 || m_steps == 0; }

    /// For as long as what a block or an external reference holds is drawn.
    class Inside {
    public:
        explicit Inside(WorkBudget& budget) : m_budget(budget) { ++m_budget.m_depth; }
        ~Inside() { --m_budget.m_depth; }
        Inside(const Inside&) = delete;
        Inside& operator=(const Inside&) = delete;

    private:
        WorkBudget& m_budget;
    };

private:
    static constexpr std::uint64_t kFree = 1'000, kFreePerByte = 16, kBytesAStep = 256;

    std::uint64_t m_entities;
    std::uint64_t m_steps;
    int m_depth = 0;
    std::set<const void*> m_granted;
};

} // namespace sm::render
