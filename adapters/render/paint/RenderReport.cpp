// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Drawing.h"
#include "drawing/entities/Entity.h"
#include "render/FrontEnd.h"

#include <algorithm>

namespace sm::render {

RenderReport::RenderReport(const drawing::Drawing& drawing)
    : m_drawing(drawing), m_outcomes(drawing.EntityCount(), Outcome::NotReached)
{
}

void RenderReport::Note(const drawing::EntityRecord& record, Outcome outcome)
{
    const std::uint64_t index = m_drawing.RecordIndex(record);
    if (index < m_outcomes.size()) {
        m_outcomes[index] = std::max(m_outcomes[index], outcome);
    }
}

std::uint64_t RenderReport::Count(Outcome outcome) const
{
    return static_cast<std::uint64_t>(std::count(m_outcomes.begin(), m_outcomes.end(), outcome));
}

std::uint64_t RenderReport::CountIn(std::uint32_t block, Outcome outcome) const
{
    const auto entities = m_drawing.EntitiesOf(block);
    return static_cast<std::uint64_t>(std::count_if(entities.begin(), entities.end(), [&](const auto& record) {
        const std::uint64_t index = m_drawing.RecordIndex(record);
        return index < m_outcomes.size() && m_outcomes[index] == outcome;
    }));
}

void RenderReport::Remark(std::string_view text)
{
    const auto at = m_remarks.find(text);
    if (at != m_remarks.end()) {
        ++at->second;
    } else {
        m_remarks.emplace(text, 1);
    }
}

std::vector<NotDrawnKind> RenderReport::NotDrawn() const
{
    std::map<std::pair<std::string, std::string>, std::uint64_t> counts;
    const auto& blocks = m_drawing.Blocks();
    for (std::uint32_t block = 0; block < blocks.size(); ++block) {
        for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(block)) {
            const std::uint64_t index = m_drawing.RecordIndex(record);
            if (index >= m_outcomes.size() || m_outcomes[index] != Outcome::NotDrawn) {
                continue;
            }
            drawing::Entity entity;
            Read(m_drawing, record, entity);
            const auto& layers = m_drawing.Layers();
            const std::string layer = entity.layer < layers.size() ? layers[entity.layer].name : "0";
            ++counts[{std::string(m_drawing.EntityName(record)), layer}];
        }
    }
    std::vector<NotDrawnKind> result;
    for (const auto& [key, count] : counts) {
        result.push_back({key.first, key.second, count});
    }
    return result;
}

} // namespace sm::render
