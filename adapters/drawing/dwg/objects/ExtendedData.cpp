// SPDX-License-Identifier: GPL-3.0-or-later
// The extended data of an object: items of applications, as groups 1000 to 1071.
#include "dwg/objects/Object.h"

namespace sm::drawing::dwg {

namespace {

/// Eight bytes, the highest first.
Handle ReadBigHandle(BitReader& bits)
{
    Handle handle = 0;
    for (int i = 0; i < 8; ++i)
        handle = handle << 8 | bits.RC();
    return handle;
}

} // namespace

void Object::WriteExtended()
{
    if (!m_hasExtended)
        return;
    const BitReader kept = data;
    data = BitReader(m_objects, m_extended, m_frame.end);
    while (const std::uint64_t size = data.BS()) {
        const Handle application = DataH();
        const std::uint64_t end = data.At() + size * 8;
        if (const std::string_view name = names.Of(application); !name.empty()) {
            sink.Text(1001, name);
            WriteExtendedOf(end);
        }
        data.Seek(end);
    }
    data = kept;
}

void Object::WriteExtendedOf(std::uint64_t end)
{
    while (data.At() + 8 <= end && !data.Overrun()) {
        const unsigned code = data.RC();
        if (code > 71)
            return;
        WriteItem(1000 + static_cast<int>(code));
    }
}

void Object::WriteItem(int code)
{
    switch (code) {
    case 1000:
        if (Since(Release::R2007)) {
            const unsigned units = data.RS();
            sink.Text(code, Utf16(units));
        } else {
            const unsigned length = data.RC();
            (void)data.RS();
            sink.Text(code, Bytes(data, length));
        }
        return;
    case 1002:
        sink.Text(code, data.RC() == 0 ? "{" : "}");
        return;
    case 1003:
        sink.Text(code, names.Of(ReadBigHandle(data)));
        return;
    case 1004: {
        std::string bytes;
        data.Copy(data.RC(), bytes);
        sink.Chunks(code, bytes);
        return;
    }
    case 1005:
        sink.HandleTag(code, ReadBigHandle(data));
        return;
    case 1040:
    case 1041:
    case 1042:
        sink.Real(code, data.RD());
        return;
    case 1070:
        sink.Integer(code, static_cast<std::int16_t>(data.RS()));
        return;
    case 1071:
        sink.Integer(code, static_cast<std::int32_t>(data.RL()));
        return;
    default:
        if (code >= 1010 && code <= 1015)
            sink.Point(code, RD3());
        else
            data.Fail(); // nobody knows how long it is
    }
}

} // namespace sm::drawing::dwg
