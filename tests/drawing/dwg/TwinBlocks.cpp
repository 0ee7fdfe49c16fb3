// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/Twins.h"

#include "base/text/Names.h"
#include "drawing/EntityKinds.h"
#include "drawing/TextDecoder.h"
#include "drawing/entities/AnnotationContexts.h"

#include <unordered_map>

namespace sm::drawing::twins {

std::string LayerName(const Drawing& drawing, std::uint32_t index)
{
    return index < drawing.Layers().size() ? drawing.Layers()[index].name : "?";
}

std::string LinetypeName(const Drawing& drawing, std::uint32_t index)
{
    return index < drawing.Linetypes().size() ? base::FoldCase(drawing.Linetypes()[index].name) : "?";
}

std::string StyleName(const Drawing& drawing, std::uint32_t index)
{
    return index < drawing.TextStyles().size() ? drawing.TextStyles()[index].name : "?";
}

Handle BlockHandle(const Drawing& drawing, std::uint32_t index)
{
    return index < drawing.Blocks().size() ? drawing.Blocks()[index].handle : 0;
}

namespace {

Handle HandleOf(const Drawing& drawing, const EntityRecord& record)
{
    Entity entity;
    Read(drawing, record, entity);
    return entity.handle;
}

/// The entities of both files stand in the same order, but for those that one of them lacks.
void CompareEntities(const Pair& pair, std::uint32_t dwg, std::uint32_t dxf, Report& report, const std::string& name)
{
    std::unordered_map<Handle, const EntityRecord*> others;
    for (const EntityRecord& record : pair.dxf.EntitiesOf(dxf))
        others.emplace(HandleOf(pair.dxf, record), &record);
    const EntityRecord* last = nullptr;
    for (const EntityRecord& record : pair.dwg.EntitiesOf(dwg)) {
        const Handle handle = HandleOf(pair.dwg, record);
        const std::string kind(pair.dwg.EntityName(record));
        const auto found = others.find(handle);
        if (found == others.end()) {
            ++report.onlyDwg[kind];
            continue;
        }
        ++report.both[kind];
        std::ostringstream place;
        place << name << " #" << std::hex << std::uppercase << handle;
        CompareEntity(pair, record, *found->second, report, place.str());
        if (last != nullptr && found->second < last)
            report.Add("BLOCK.order", place.str());
        last = found->second;
        others.erase(found);
    }
    for (const auto& [handle, record] : others)
        ++report.onlyDxf[std::string(pair.dxf.EntityName(*record))];
}

} // namespace

Pair MakePair(const Drawing& dwg, const Drawing& dxf)
{
    Pair pair{dwg, dxf, {}};
    for (const Layout& layout : dxf.Layouts())
        for (const EntityRecord& record : dxf.EntitiesOf(layout.block))
            if (const Handle scale = record.kind == EntityKind::Viewport ? AnnotationScaleOf(dxf, record) : 0;
                scale != 0)
                pair.scales.push_back(scale);
    return pair;
}

void CompareBlocks(const Pair& pair, Report& report, const std::string& name)
{
    std::unordered_map<Handle, std::uint32_t> others;
    for (std::uint32_t i = 0; i < pair.dxf.Blocks().size(); ++i)
        others.emplace(pair.dxf.Blocks()[i].handle, i);
    for (std::uint32_t i = 0; i < pair.dwg.Blocks().size(); ++i) {
        const Block& a = pair.dwg.Blocks()[i];
        const auto found = others.find(a.handle);
        if (found == others.end()) {
            ++report.onlyDwg["BLOCK"];
            continue;
        }
        ++report.both["BLOCK"];
        const Block& b = pair.dxf.Blocks()[found->second];
        Fields fields(report, "BLOCK", name + " " + b.name);
        const bool anonymous = b.name.starts_with('*') && !b.isModelSpace && !b.isPaperSpace;
        fields.Is(anonymous ? "anonymous name" : "name", a.name, b.name);
        fields.Is("base", a.base, b.base);
        fields.Is("flags", a.flags, b.flags);
        fields.Is("xrefPath", a.xrefPath, b.xrefPath);
        fields.Is("isModelSpace", a.isModelSpace, b.isModelSpace);
        fields.Is("isPaperSpace", a.isPaperSpace, b.isPaperSpace);
        fields.Is("units", a.units, b.units);
        CompareEntities(pair, i, found->second, report, name + " " + b.name);
        others.erase(found);
    }
    if (!others.empty())
        report.onlyDxf["BLOCK"] += others.size();
}

} // namespace sm::drawing::twins
