// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/records/RecordDecoders.h"

#include <vector>

namespace sm::drawing::dwg {

namespace {

/// The XRECORDs that something is read of: what layers look like in viewports, and the scales of viewports. Most
/// drawings hold many others, and large ones.
bool IsReadRecord(std::string_view name)
{
    return name.starts_with("ADSK_XREC_LAYER_") || name == "ASDK_XREC_ANNOTATION_SCALE_INFO";
}

/// Entries are names, in the texts, and as many handles. Where names and handles share no stream, both run on
/// alongside each other.
void WriteEntries(Object& object, bool hasFlags, bool hasOwner)
{
    BitReader& data = object.data;
    std::uint32_t count = data.BL();
    if (hasFlags)
        object.sink.Integer(281, data.BS());
    if (hasOwner)
        object.sink.Integer(280, data.RC());
    for (; count > 0 && !object.Lost() && object.Links().Left() >= 8; --count) {
        const std::string_view name = object.T();
        object.sink.Text(3, name);
        const Handle entry = object.H();
        object.sink.HandleTag(350, entry);
        if (IsReadRecord(name))
            object.records.push_back(entry);
    }
}

} // namespace

void DecodeDictionary(Object& object)
{
    WriteEntries(object, object.Since(Release::R2000), object.Since(Release::R14));
}

void DecodeDictionaryWithDefault(Object& object)
{
    WriteEntries(object, true, true);
}

void DecodeDictionaryVariable(Object& object)
{
    object.sink.Integer(280, object.data.RC());
    object.WriteT(1);
}

namespace {

/// Handles in the data of an XRECORD have eight bytes, the lowest first.
bool IsHandleCode(int code)
{
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || (code >= 480 && code <= 481);
}

bool IsPointCode(int code)
{
    return (code >= 10 && code <= 19) || (code >= 110 && code <= 112) || (code >= 210 && code <= 219) ||
           (code >= 1010 && code <= 1013);
}

/// What is read of XRECORDs are numbers and handles.
void SkipString(Object& object)
{
    const std::uint64_t length = object.data.RS();
    object.data.Skip(object.Since(Release::R2007) ? length * 16 : 8 + length * 8);
}

void WriteInteger(Object& object, int code, unsigned width)
{
    BitReader& data = object.data;
    switch (width) {
    case 1:
        object.sink.Integer(code, data.RC());
        break;
    case 2:
        object.sink.Integer(code, static_cast<std::int16_t>(data.RS()));
        break;
    case 4:
        object.sink.Integer(code, static_cast<std::int32_t>(data.RL()));
        break;
    default:
        object.sink.Integer(code, static_cast<std::int64_t>(data.RLL()));
    }
}

void WriteItem(Object& object, int code)
{
    BitReader& data = object.data;
    if (IsPointCode(code)) {
        object.sink.Point(code, object.RD3());
        return;
    }
    if (IsHandleCode(code)) {
        object.sink.HandleTag(code, data.RLL());
        return;
    }
    const BinaryType type = BinaryTypeOf(code);
    switch (type.type) {
    case ValueType::Real:
        object.sink.Real(code, data.RD());
        break;
    case ValueType::Integer:
        WriteInteger(object, code, code >= 280 && code <= 289 ? 1 : type.width);
        break;
    case ValueType::Chunk: // previews and other bytes that nobody reads
        data.Skip(data.RC() * std::uint64_t{8});
        break;
    case ValueType::Text:
        SkipString(object);
        break;
    }
}

} // namespace

void DecodeXRecord(Object& object)
{
    BitReader& data = object.data;
    const std::uint64_t end = data.At() + std::uint64_t{data.BL()} * 8;
    object.sink.Text(100, "AcDbXrecord");
    while (data.At() + 16 <= end && !data.Overrun())
        WriteItem(object, static_cast<std::int16_t>(data.RS()));
}

} // namespace sm::drawing::dwg
