// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Names.h"

#include <algorithm>

namespace sm::drawing {

namespace {

struct BlockRecord {
    std::string_view rawName;
    Handle handle = 0;
    std::int32_t units = 0;
};

BlockRecord ReadRecord(const Model& model, const Slice& slice)
{
    BlockRecord record;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (tag.Code() == 2)
            record.rawName = tag.Name();
        else if (tag.Code() == 5)
            record.handle = tag.HandleValue();
        else if (tag.Code() == 70)
            record.units = tag.Integer();
    });
    return record;
}

struct ReadBlock {
    Block block;
    std::string_view rawName;
};

ReadBlock ReadHeader(const Model& model, const Slice& slice)
{
    ReadBlock read;
    Block& block = read.block;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        switch (tag.Code()) {
        case 1:
            block.xrefPath = model.Text(tag.Name());
            break;
        case 2:
            read.rawName = tag.Name();
            break;
        case 3:
            if (read.rawName.empty())
                read.rawName = tag.Name();
            break;
        case 10:
            block.base.x = tag.Real();
            break;
        case 20:
            block.base.y = tag.Real();
            break;
        case 30:
            block.base.z = tag.Real();
            break;
        case 70:
            block.flags = tag.Integer();
            break;
        case 330:
            block.handle = tag.HandleValue();
            break;
        default:
            break;
        }
    });
    block.name = model.Text(read.rawName);
    return read;
}

void MarkSpace(Model& model, std::uint32_t index)
{
    Block& block = model.blocks[index];
    const std::string name = base::FoldCase(block.name);
    block.isModelSpace = name == "*model_space" || name == "$model_space";
    block.isPaperSpace = name.starts_with("*paper_space") || name.starts_with("$paper_space");
    if (block.isModelSpace && model.modelSpace == kNoBlock)
        model.modelSpace = index;
    if ((name == "*paper_space" || name == "$paper_space") && model.paperSpace == kNoBlock)
        model.paperSpace = index;
}

std::uint32_t AddBlock(Model& model, Block block, std::string_view rawName, RecordSpan span)
{
    const auto index = static_cast<std::uint32_t>(model.blocks.size());
    model.source.blocks.Add(rawName, block.name, index);
    model.blocks.push_back(std::move(block));
    model.spans.push_back(span);
    MarkSpace(model, index);
    return index;
}

void ReadBlocks(Model& model)
{
    for (const ScannedBlock& scanned : model.structure.blocks) {
        ReadBlock read = ReadHeader(model, scanned.header);
        if (read.block.name.empty()) {
            model.findings.Add(Damage::BlockWithoutName, scanned.header.line);
            continue;
        }
        if (model.source.blocks.FindUtf8(read.block.name))
            model.findings.Add(Damage::DoubleBlock, scanned.header.line);
        AddBlock(model, std::move(read.block), read.rawName, {scanned.first, scanned.count});
    }
}

void JoinRecords(Model& model)
{
    ForEachEntry(model, "BLOCK_RECORD", [&](const Slice& slice) {
        const BlockRecord record = ReadRecord(model, slice);
        auto index = model.source.blocks.Find(record.rawName, *model.source.text);
        if (!index && !record.rawName.empty()) {
            Block block;
            block.name = model.Text(record.rawName);
            index = AddBlock(model, std::move(block), record.rawName, {});
        }
        if (!index)
            return;
        model.blocks[*index].handle = record.handle;
        model.blocks[*index].units = record.units;
        if (record.handle != 0)
            model.source.blockOfHandle.emplace(record.handle, *index);
    });
    for (std::uint32_t i = 0; i < model.blocks.size(); ++i)
        if (model.blocks[i].handle != 0)
            model.source.blockOfHandle.emplace(model.blocks[i].handle, i);
}

std::uint32_t EnsureSpace(Model& model, std::uint32_t found, const char* name)
{
    if (found != kNoBlock)
        return found;
    Block block;
    block.name = name;
    return AddBlock(model, std::move(block), name, {});
}

/// Appends records to the space's own ones in front of those of its block.
void PlaceSpace(Model& model, std::uint32_t block, std::vector<EntityRecord>& records,
                const std::vector<EntityRecord>& blockEntities)
{
    const RecordSpan own = model.spans[block];
    model.spans[block] = {model.records.size(), records.size() + own.count};
    if (model.records.empty())
        model.records = std::move(records);
    else
        model.records.insert(model.records.end(), records.begin(), records.end());
    const auto from = blockEntities.begin() + static_cast<std::ptrdiff_t>(own.first);
    model.records.insert(model.records.end(), from, from + static_cast<std::ptrdiff_t>(own.count));
}

void PlaceRecords(Model& model)
{
    Structure& found = model.structure;
    const std::vector<EntityRecord> blockEntities = std::move(found.blockEntities);
    PlaceSpace(model, model.modelSpace, found.modelEntities, blockEntities);
    PlaceSpace(model, model.paperSpace, found.paperEntities, blockEntities);
    for (std::uint32_t i = 0; i < model.blocks.size(); ++i) {
        if (i == model.modelSpace || i == model.paperSpace)
            continue;
        RecordSpan& span = model.spans[i];
        const auto from = blockEntities.begin() + static_cast<std::ptrdiff_t>(span.first);
        span.first = model.records.size();
        model.records.insert(model.records.end(), from, from + static_cast<std::ptrdiff_t>(span.count));
    }
    for (std::uint32_t i = 0; i < model.blocks.size(); ++i)
        if (model.blocks[i].isPaperSpace)
            for (std::size_t k = 0; k < model.spans[i].count; ++k)
                model.records[model.spans[i].first + k].paperSpace = true;
}

} // namespace

void BuildBlocks(Model& model)
{
    ReadBlocks(model);
    JoinRecords(model);
    model.modelSpace = EnsureSpace(model, model.modelSpace, "*Model_Space");
    model.paperSpace = EnsureSpace(model, model.paperSpace, "*Paper_Space");
    PlaceRecords(model);
}

} // namespace sm::drawing
