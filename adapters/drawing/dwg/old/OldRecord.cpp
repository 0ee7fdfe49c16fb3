// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/old/OldRecord.h"

namespace sm::drawing::dwg {

namespace {

enum Flag : unsigned {
    kColor = 0x01,
    kLinetype = 0x02,
    kElevation = 0x04,
    kThickness = 0x08,
    kHandle = 0x20,
    kExtra = 0x40,
    kMembers = 0x80
};
enum Extra : unsigned { kExtended = 2, kViewport = 4 };

/// These say by the elevation's flag that their points have no z.
bool KnowsDepth(OldType type)
{
    return type == OldType::Line || type == OldType::Point || type == OldType::Face3d || type == OldType::Line3d;
}

void PutExtendedItem(const OldFile& file, OldBytes& bytes, TagSink& sink)
{
    const int item = bytes.RC();
    const int code = 1000 + item;
    if (item == 0)
        sink.Text(code, bytes.Take(bytes.RC()));
    else if (item == 1)
        sink.Text(code, file.Name(OldTable::AppId, bytes.Count()));
    else if (item == 2)
        sink.Text(code, bytes.RC() == 0 ? "{" : "}");
    else if (item == 3)
        sink.Text(code, file.Name(OldTable::Layer, bytes.Count()));
    else if (item == 4)
        sink.Chunks(code, bytes.Take(bytes.RC()));
    else if (item == 5) {
        std::uint64_t handle = 0;
        for (const char c : bytes.Take(8))
            handle = handle << 8U | static_cast<unsigned char>(c);
        sink.HandleTag(code, handle);
    } else if (item >= 10 && item <= 15)
        sink.Point(code, bytes.Point3());
    else if (item >= 40 && item <= 42)
        sink.Real(code, bytes.RD());
    else if (item == 70)
        sink.Integer(code, bytes.RS());
    else if (item == 71)
        sink.Integer(code, static_cast<std::int32_t>(bytes.RL()));
    else
        bytes.Take(bytes.Left()); // nobody knows how long it is
}

} // namespace

OldRecord ReadOldRecord(const OldFile& file, std::string_view bytes)
{
    OldRecord record;
    OldBytes in(bytes);
    const unsigned type = in.RC(), flags = in.RC();
    in.Count();
    record.type = static_cast<OldType>(type & 0x7FU);
    record.release = file.release;
    record.erased = (type & 0x80U) != 0;
    record.hasMembers = (flags & kMembers) != 0;
    if (record.type == OldType::Jump) {
        record.fields = in;
        return record;
    }
    const bool byteWide = file.release != OldRelease::R11;
    record.layer = in.Count();
    record.options = in.Count();
    const unsigned extra = (flags & kExtra) != 0 ? in.RC() : 0U;
    if ((extra & kExtended) != 0)
        record.extended = in.Take(in.Count());
    if ((flags & kColor) != 0)
        record.color = in.RC();
    if ((flags & kLinetype) != 0)
        record.linetype = byteWide ? in.RC() : in.Count();
    record.isFlat = (flags & kElevation) != 0;
    if (record.isFlat && (file.release == OldRelease::R9 || !KnowsDepth(record.type)))
        record.elevation = in.RD();
    if ((flags & kThickness) != 0)
        record.thickness = in.RD();
    if ((flags & kHandle) != 0)
        record.handle = in.Handle();
    record.paperSpace = (extra & kViewport) != 0;
    if (record.paperSpace)
        in.Count();
    record.fields = in;
    return record;
}

void PutCommon(const OldFile& file, const OldRecord& record, TagSink& sink)
{
    if (record.handle != 0)
        sink.HandleTag(5, record.handle);
    sink.Text(8, file.Name(OldTable::Layer, record.layer));
    if (record.linetype)
        sink.Text(6, file.LinetypeName(*record.linetype));
    if (record.color)
        sink.Integer(62, *record.color);
    if (record.thickness != 0)
        sink.Real(39, record.thickness);
}

void PutExtended(const OldFile& file, const OldRecord& record, TagSink& sink)
{
    OldBytes bytes(record.extended);
    while (bytes.Left() != 0 && !bytes.Overrun())
        PutExtendedItem(file, bytes, sink);
}

} // namespace sm::drawing::dwg
