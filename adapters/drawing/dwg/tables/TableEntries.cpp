// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/tables/TableEntries.h"

#include "dwg/objects/Rows.h"
#include "dwg/tables/Linetypes.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array kTypes{TableTypes{48, 49}, TableTypes{50, 51}, TableTypes{52, 53}, TableTypes{56, 57},
                            TableTypes{60, 61}, TableTypes{64, 65}, TableTypes{66, 67}, TableTypes{68, 69}};

constexpr std::int32_t kFromReference = 16, kReferenced = 64;

/// Name and flags; `own`: bits of the entry's own kind. The handle of the external block is the first one of all.
void WriteHead(Object& object, const char* name, std::int32_t own = 0)
{
    object.sink.TableEntry(name);
    // In dimension styles group 5 is an arrow.
    object.WriteObjectHead(object.type == TypesOf(Table::DimensionStyle).entry ? 105 : 5);
    object.sink.Text(2, object.names.Of(object.own));
    object.sink.Integer(70, own);
}

std::int32_t ReadHead(Object& object)
{
    object.SkipT();
    const std::int32_t flags = ReadEntryFlags(object) ? kFromReference | kReferenced : kReferenced;
    (void)object.H();
    return flags;
}

struct LayerState {
    bool frozen = false, off = false, frozenInNew = false, locked = false, plots = true;
    std::uint32_t lineweight = 31;
};

LayerState ReadLayerState(Object& object)
{
    LayerState state;
    BitReader& data = object.data;
    if (object.Before(Release::R2000)) {
        state.frozen = data.B();
        state.off = data.B();
        state.frozenInNew = data.B();
        state.locked = data.B();
        return state;
    }
    const std::uint32_t bits = data.BS();
    state.frozen = (bits & 1) != 0;
    state.off = (bits & 2) != 0;
    state.frozenInNew = (bits & 4) != 0;
    state.locked = (bits & 8) != 0;
    state.plots = (bits & 0x10) != 0;
    state.lineweight = bits >> 5 & 0x1F;
    return state;
}

void WriteLayer(Object& object)
{
    std::int32_t flags = ReadHead(object);
    const LayerState state = ReadLayerState(object);
    const Color color = object.CMC();
    const Handle plotStyle = object.Since(Release::R2000) ? object.H() : 0;
    object.SkipH(object.Since(Release::R2007) ? 1 : 0);
    const Handle linetype = object.H();
    flags |= (state.frozen ? 1 : 0) | (state.frozenInNew ? 2 : 0) | (state.locked ? 4 : 0);
    WriteHead(object, "LAYER", flags);
    TagSink& sink = object.sink;
    sink.Integer(62, state.off ? -color.Index() : color.Index());
    if (const auto rgb = color.Rgb())
        sink.Integer(420, *rgb);
    if (!color.name.empty())
        sink.Text(430, color.name);
    object.WriteName(6, linetype);
    if (!state.plots)
        sink.Integer(290, 0);
    if (object.Since(Release::R2000))
        sink.Integer(370, LineweightOf(state.lineweight));
    if (plotStyle != 0)
        sink.HandleTag(390, plotStyle);
}

void WriteStyle(Object& object)
{
    std::int32_t flags = ReadHead(object);
    BitReader& data = object.data;
    flags |= data.B() ? 1 : 0;
    flags |= data.B() ? 4 : 0;
    WriteHead(object, "STYLE", flags);
    TagSink& sink = object.sink;
    sink.Real(40, data.BD());
    sink.Real(41, data.BD());
    object.WriteAngle(50, data.BD());
    sink.Integer(71, data.RC());
    sink.Real(42, data.BD());
    object.WriteT(3);
    object.WriteT(4);
}

struct Depth {
    double lens = 0, front = 0, back = 0;
    std::int32_t mode = 0; ///< group 71
};

Depth ReadDepth(BitReader& data)
{
    Depth depth{data.BD(), data.BD(), data.BD()};
    for (int bit = 0; bit < 3; ++bit)
        depth.mode |= data.B() ? 1 << bit : 0;
    constexpr std::int32_t kNotAtEye = 16;
    depth.mode |= data.B() ? 0 : kNotAtEye; // the other way round than in group 71
    return depth;
}

void WriteDepth(Object& object, const Depth& depth)
{
    object.sink.Real(42, depth.lens);
    object.sink.Real(43, depth.front);
    object.sink.Real(44, depth.back);
    object.sink.Integer(71, depth.mode);
}

void WriteView(Object& object)
{
    std::int32_t flags = ReadHead(object);
    BitReader& data = object.data;
    const double height = data.BD(), width = data.BD();
    const Vec2 center = object.RD2();
    const Vec3 target = object.BD3(), direction = object.BD3();
    const double twist = data.BD();
    const Depth depth = ReadDepth(data);
    if (object.Since(Release::R2000))
        (void)data.RC();
    if (object.Since(Release::R2007)) {
        data.B();
        (void)data.RC();
        (void)data.BD();
        (void)data.BD();
        (void)object.CMC();
    }
    flags |= data.B() ? 1 : 0;
    WriteHead(object, "VIEW", flags);
    TagSink& sink = object.sink;
    sink.Real(40, height);
    sink.Real(41, width);
    sink.Point(10, center);
    sink.Point(11, direction);
    sink.Point(12, target);
    WriteDepth(object, depth);
    object.WriteAngle(50, twist);
}

void WriteViewport(Object& object)
{
    const std::int32_t flags = ReadHead(object);
    BitReader& data = object.data;
    const double height = data.BD(), width = data.BD();
    const Vec2 center = object.RD2();
    const Vec3 target = object.BD3(), direction = object.BD3();
    const double twist = data.BD();
    const Depth depth = ReadDepth(data);
    WriteHead(object, "VPORT", flags);
    TagSink& sink = object.sink;
    sink.Point(12, center);
    sink.Point(16, direction);
    sink.Point(17, target);
    sink.Real(40, height);
    sink.Real(41, height != 0 ? width / height : 1);
    object.WriteAngle(51, twist);
    WriteDepth(object, depth);
}

void WriteApplication(Object& object)
{
    WriteHead(object, "APPID", ReadHead(object));
}

void WriteDimensionStyle(Object& object)
{
    WriteHead(object, "DIMSTYLE", ReadHead(object));
    WriteGroups(object, DimensionRows());
}

void WriteLinetypeEntry(Object& object)
{
    const std::int32_t flags = ReadHead(object);
    WriteHead(object, "LTYPE", flags);
    WriteLinetype(object);
}

constexpr std::array<void (*)(Object&), static_cast<std::size_t>(Table::Count)> kWriters{
    nullptr,   WriteLayer,    WriteStyle,       WriteLinetypeEntry,
    WriteView, WriteViewport, WriteApplication, WriteDimensionStyle};

} // namespace

TableTypes TypesOf(Table table)
{
    return kTypes[static_cast<std::size_t>(table)];
}

bool ReadEntryFlags(Object& object)
{
    constexpr std::uint32_t kDependent = 256;
    if (object.Since(Release::R2007))
        return (object.data.BS() & kDependent) != 0;
    (void)object.data.B();
    (void)object.data.BS();
    return object.data.B();
}

std::vector<Handle> ReadControl(Object& object, Table table)
{
    object.ReadObjectHead();
    std::uint32_t count = object.data.BL();
    if (table == Table::DimensionStyle && object.Since(Release::R2000))
        (void)object.data.RC();
    // The model and paper space blocks, and the line types by layer and by block, are not counted.
    count += table == Table::Block || table == Table::Linetype ? 2 : 0;
    std::vector<Handle> entries;
    for (; count > 0 && object.Links().Left() >= 8; --count)
        entries.push_back(object.H());
    return entries;
}

std::string ReadEntryName(Object& object)
{
    object.ReadObjectHead();
    return std::string(object.T());
}

void WriteTableEntry(Object& object, Table table)
{
    object.ReadObjectHead();
    kWriters[static_cast<std::size_t>(table)](object);
    object.WriteExtended();
}

} // namespace sm::drawing::dwg
