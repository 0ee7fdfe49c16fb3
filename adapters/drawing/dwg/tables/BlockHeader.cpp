// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/tables/BlockHeader.h"

#include "dwg/tables/TableEntries.h"

namespace sm::drawing::dwg {

namespace {

/// Since R2000: one byte for each insert, closed by a 0; the handles of the inserts follow those of the entities.
std::uint32_t CountInserts(BitReader& data)
{
    std::uint32_t count = 0;
    while (!data.Overrun() && data.RC() != 0)
        ++count;
    return count;
}

void ReadTail(Object& object, BlockHeader& header)
{
    BitReader& data = object.data;
    object.SkipT();
    const std::uint64_t preview = data.BL();
    data.Skip(preview * 8);
    if (object.Since(Release::R2007)) {
        header.units = data.BS();
        data.B();
        (void)data.RC();
    }
}

} // namespace

BlockHeader ReadBlockHeader(Object& object)
{
    BlockHeader header;
    object.ReadObjectHead();
    header.handle = object.own;
    header.owner = object.owner;
    BitReader& data = object.data;
    object.SkipT();
    header.dependent = ReadEntryFlags(object);
    header.anonymous = data.B();
    header.hasAttributes = data.B();
    header.isReference = data.B();
    header.isOverlay = data.B();
    if (object.Since(Release::R2000))
        data.B();
    const bool own = !header.isReference && !header.isOverlay;
    std::uint32_t owned = object.Since(Release::R2004) && own ? data.BL() : 0;
    header.base = object.BD3();
    header.xrefPath = object.T();
    const std::uint32_t inserts = object.Since(Release::R2000) ? CountInserts(data) : 0;
    if (object.Since(Release::R2000))
        ReadTail(object, header);
    object.SkipH(2);
    if (object.Before(Release::R2004) && own) {
        header.first = object.H();
        header.last = object.H();
    }
    header.entities.reserve(std::min<std::uint64_t>(owned, object.Links().Left() / 8));
    for (; owned > 0 && object.Links().Left() >= 8; --owned)
        header.entities.push_back(object.H());
    (void)object.H();
    if (object.Since(Release::R2000)) {
        object.SkipH(inserts);
        header.layout = object.H();
    }
    return header;
}

void WriteBlockRecord(Object& object, const BlockHeader& header)
{
    TagSink& sink = object.sink;
    sink.TableEntry("BLOCK_RECORD");
    object.WriteObjectHead();
    sink.Text(2, object.names.Of(header.handle));
    sink.HandleTag(340, header.layout);
    sink.Integer(70, header.units);
    object.WriteExtended();
}

void WriteBlock(TagSink& sink, const Names& names, const BlockHeader& header)
{
    constexpr std::int32_t kAnonymous = 1, kHasAttributes = 2, kReference = 4, kOverlay = 8, kDependent = 16,
                           kResolved = 32;
    std::int32_t flags = 0;
    flags |= header.anonymous ? kAnonymous : 0;
    flags |= header.hasAttributes ? kHasAttributes : 0;
    flags |= header.isReference ? kReference | kResolved : 0;
    flags |= header.isOverlay ? kOverlay : 0;
    flags |= header.dependent ? kDependent : 0;
    sink.BeginBlock();
    sink.HandleTag(330, header.handle);
    sink.Text(2, names.Of(header.handle));
    sink.Integer(70, flags);
    sink.Point(10, header.base);
    if (!header.xrefPath.empty())
        sink.Text(1, header.xrefPath);
}

} // namespace sm::drawing::dwg
