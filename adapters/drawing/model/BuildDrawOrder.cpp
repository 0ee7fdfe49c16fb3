// SPDX-License-Identifier: GPL-3.0-or-later
#include "entities/EntityTags.h"
#include "model/Model.h"

#include <algorithm>

namespace sm::drawing {

namespace {

struct DrawOrder {
    Handle block = 0;
    std::unordered_map<Handle, Handle> keys; ///< entity → the handle that stands for it in the order
};

/// SORTENTSTABLE (DXF reference): 330 the block, then pairs of 331 (entity) and 5 (its place).
DrawOrder ReadOrder(const Model& model, const Slice& slice)
{
    DrawOrder order;
    Handle entity = 0;
    bool inTable = false;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (tag.Code() == 100)
            inTable = true;
        else if (!inTable)
            return;
        else if (tag.Code() == 330)
            order.block = tag.HandleValue();
        else if (tag.Code() == 331)
            entity = tag.HandleValue();
        else if (tag.Code() == 5 && entity != 0)
            order.keys.emplace(entity, tag.HandleValue());
    });
    return order;
}

void Apply(Model& model, const DrawOrder& order, const RecordSpan& span)
{
    std::vector<std::pair<Handle, EntityRecord>> sorted;
    sorted.reserve(span.count);
    for (std::size_t i = 0; i < span.count; ++i) {
        const EntityRecord& record = model.records[span.first + i];
        const Handle handle = HandleOf(model.source, record);
        const auto key = order.keys.find(handle);
        sorted.emplace_back(key == order.keys.end() ? handle : key->second, record);
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < span.count; ++i)
        model.records[span.first + i] = sorted[i].second;
}

} // namespace

void BuildDrawOrder(Model& model)
{
    ForEachObject(model, "SORTENTSTABLE", [&](const Slice& slice) {
        const DrawOrder order = ReadOrder(model, slice);
        const auto block = model.source.blockOfHandle.find(order.block);
        if (block != model.source.blockOfHandle.end() && !order.keys.empty())
            Apply(model, order, model.spans[block->second]);
    });
}

} // namespace sm::drawing
