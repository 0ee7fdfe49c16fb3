// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PlotSettingsReader.h"

#include "base/text/Names.h"
#include "model/DictionaryVariables.h"

#include <algorithm>
#include <set>

namespace sm::drawing {

namespace {

/// Beyond this, limits and extents are the values that CAD programs write for "nothing" (1e20).
constexpr double kNoExtents = 1e19;

struct ReadLayout {
    Layout layout;
    Handle block = 0;
    Slice slice;
};

void TakeLayoutTag(const Model& model, const TagCursor& tag, ReadLayout& read)
{
    Layout& layout = read.layout;
    switch (tag.Code()) {
    case 1:
        layout.name = model.Text(tag.Name());
        break;
    case 70:
        layout.psltscale = (tag.Integer() & 1) != 0;
        break;
    case 71:
        layout.tabOrder = tag.Integer();
        break;
    case 10:
        layout.limits.min.x = tag.Real();
        break;
    case 20:
        layout.limits.min.y = tag.Real();
        break;
    case 11:
        layout.limits.max.x = tag.Real();
        break;
    case 21:
        layout.limits.max.y = tag.Real();
        break;
    case 12:
        layout.insertionBase.x = tag.Real();
        break;
    case 22:
        layout.insertionBase.y = tag.Real();
        break;
    case 32:
        layout.insertionBase.z = tag.Real();
        break;
    case 14:
        layout.extents.min.x = tag.Real();
        break;
    case 24:
        layout.extents.min.y = tag.Real();
        break;
    case 15:
        layout.extents.max.x = tag.Real();
        break;
    case 25:
        layout.extents.max.y = tag.Real();
        break;
    case 330:
        read.block = tag.HandleValue();
        break;
    default:
        break;
    }
}

Box2 Sound(const Box2& box)
{
    const bool far = std::abs(box.min.x) > kNoExtents || std::abs(box.max.x) > kNoExtents ||
                     std::abs(box.min.y) > kNoExtents || std::abs(box.max.y) > kNoExtents;
    return box.Empty() || far ? Box2{} : box;
}

ReadLayout ReadObject(const Model& model, const Slice& slice)
{
    ReadLayout read;
    read.slice = slice;
    bool inLayout = false;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (tag.Code() == 100)
            inLayout = tag.Name() == "AcDbLayout";
        else if (tag.Code() == 5)
            read.layout.handle = tag.HandleValue();
        else if (inLayout)
            TakeLayoutTag(model, tag, read);
        else
            TakePlotSettingsTag(model, tag, read.layout.plot);
    });
    read.layout.limits = Sound(read.layout.limits);
    read.layout.extents = Sound(read.layout.extents);
    return read;
}

/// The block that names this layout in its record (code 340), when the layout's own link leads nowhere.
std::uint32_t BlockNaming(const Model& model, Handle layout)
{
    std::uint32_t block = kNoBlock;
    ForEachEntry(model, "BLOCK_RECORD", [&](const Slice& slice) {
        Handle handle = 0, named = 0;
        ForEachTag(model, slice, [&](const TagCursor& tag) {
            if (tag.Code() == 5)
                handle = tag.HandleValue();
            else if (tag.Code() == 340)
                named = tag.HandleValue();
        });
        const auto found = model.source.blockOfHandle.find(handle);
        if (named == layout && layout != 0 && found != model.source.blockOfHandle.end())
            block = found->second;
    });
    return block;
}

bool IsSpace(const Model& model, std::uint32_t block)
{
    return block != kNoBlock && (model.blocks[block].isModelSpace || model.blocks[block].isPaperSpace);
}

bool IsTaken(const Model& model, std::uint32_t block)
{
    return std::any_of(model.layouts.begin(), model.layouts.end(), [&](const Layout& l) { return l.block == block; });
}

/// The next paper block that no layout has, or a new empty one.
std::uint32_t FreePaperBlock(Model& model)
{
    for (std::uint32_t i = 0; i < model.blocks.size(); ++i)
        if (model.blocks[i].isPaperSpace && !IsTaken(model, i))
            return i;
    Block block;
    block.name = "*Paper_Space" + std::to_string(model.blocks.size());
    block.isPaperSpace = true;
    model.blocks.push_back(std::move(block));
    model.spans.push_back({model.records.size(), 0});
    return static_cast<std::uint32_t>(model.blocks.size() - 1);
}

void AddReadLayout(Model& model, ReadLayout& read, bool repair)
{
    const auto linked = model.source.blockOfHandle.find(read.block);
    std::uint32_t block = linked == model.source.blockOfHandle.end() ? kNoBlock : linked->second;
    if (!IsSpace(model, block) || IsTaken(model, block))
        block = BlockNaming(model, read.layout.handle);
    if (!IsSpace(model, block) || IsTaken(model, block)) {
        if (!repair)
            return;
        model.findings.Add(Damage::LayoutWithoutBlock, read.slice.line);
        const bool isModel = base::SameName(read.layout.name, "Model") && !IsTaken(model, model.modelSpace);
        block = isModel ? model.modelSpace : FreePaperBlock(model);
    }
    read.layout.block = block;
    read.layout.isModel = model.blocks[block].isModelSpace;
    model.layouts.push_back(std::move(read.layout));
    read.slice.length = 0;
}

void AddAssumed(Model& model, const char* name, std::uint32_t block, bool isModel)
{
    Layout layout;
    layout.name = name;
    layout.block = block;
    layout.isModel = isModel;
    layout.hasPlotSettings = false;
    layout.tabOrder = isModel ? 0 : 1;
    model.layouts.push_back(std::move(layout));
}

void AssumeMissing(Model& model)
{
    const auto isModel = [](const Layout& layout) { return layout.isModel; };
    const bool hasModel = std::any_of(model.layouts.begin(), model.layouts.end(), isModel);
    const bool hasPaper = !std::all_of(model.layouts.begin(), model.layouts.end(), isModel);
    if (!hasModel)
        AddAssumed(model, "Model", model.modelSpace, true);
    if (!hasPaper)
        AddAssumed(model, "Layout1", IsTaken(model, model.paperSpace) ? FreePaperBlock(model) : model.paperSpace,
                   false);
    if ((!hasModel || !hasPaper) && model.version >= Version::R2000)
        model.findings.Add(Damage::NoLayouts, 1);
}

void NameAll(Model& model)
{
    std::set<std::string> names;
    for (Layout& layout : model.layouts) {
        const std::string wanted = layout.name.empty() ? "Layout" : layout.name;
        std::string name = wanted;
        for (int number = 1; layout.name.empty() || !names.insert(base::FoldCase(name)).second; ++number) {
            layout.name = name = wanted + (layout.name.empty() ? "" : " ") + std::to_string(number);
            if (number == 1)
                model.findings.Add(Damage::LayoutWithoutName, 1);
            if (names.insert(base::FoldCase(name)).second)
                break;
        }
        layout.name = name;
    }
}

void OrderTabs(Model& model)
{
    std::stable_sort(model.layouts.begin(), model.layouts.end(), [](const Layout& a, const Layout& b) {
        return a.isModel != b.isModel ? a.isModel : a.tabOrder < b.tabOrder;
    });
    // Gaps are what deleted layouts leave behind: no damage.
    const auto samePlace = [](const Layout& a, const Layout& b) {
        return a.isModel == b.isModel && a.tabOrder == b.tabOrder;
    };
    if (std::ranges::adjacent_find(model.layouts, samePlace) != model.layouts.end())
        model.findings.Add(Damage::TabOrder, 1);
    std::int32_t next = 0;
    for (Layout& layout : model.layouts)
        layout.tabOrder = next++;
}

std::size_t FindActive(const Model& model)
{
    const std::string tab = base::FoldCase(DictionaryVariable(model, "CTAB")); // where it keeps its current tab
    for (std::size_t i = 0; i < model.layouts.size(); ++i)
        if (!tab.empty() && base::FoldCase(model.layouts[i].name) == tab)
            return i;
    if (model.header.Integer("$TILEMODE", 1) != 0)
        return 0;
    for (std::size_t i = 0; i < model.layouts.size(); ++i)
        if (model.layouts[i].block == model.paperSpace)
            return i;
    return 0;
}

} // namespace

void BuildLayouts(Model& model)
{
    std::vector<ReadLayout> read;
    ForEachObject(model, "LAYOUT", [&](const Slice& slice) { read.push_back(ReadObject(model, slice)); });
    // Sound links first, so that a broken one never takes a block that belongs to another layout.
    for (const bool repair : {false, true})
        for (ReadLayout& layout : read)
            if (layout.slice.length != 0)
                AddReadLayout(model, layout, repair);
    AssumeMissing(model);
    OrderTabs(model);
    NameAll(model);
    model.activeLayout = FindActive(model);
}

} // namespace sm::drawing
