// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

/// How the body is stored.
constexpr std::uint32_t kText = 1, kBinary = 2;

/// A line of the text form: its characters are those of DXF already, but for the blank that follows a caret there.
void WriteLine(TagSink& sink, std::string_view line, std::string& scratch)
{
    scratch.clear();
    for (const char c : line) {
        scratch.push_back(c);
        if (c == '^')
            scratch.push_back(' ');
    }
    sink.Text(1, scratch);
}

void WriteLines(TagSink& sink, std::string_view save)
{
    std::string scratch;
    while (!save.empty()) {
        const std::size_t end = save.find('\n');
        std::string_view line = save.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        WriteLine(sink, line, scratch);
        save.remove_prefix(end == std::string_view::npos ? save.size() : end + 1);
    }
}

void WriteTextForm(Object& object)
{
    BitReader& data = object.data;
    std::string save;
    while (const std::uint32_t size = data.Count(data.BL(), 8))
        data.Copy(size, save);
    WriteLines(object.sink, save);
}

} // namespace

void DecodeBody(Object& object)
{
    BitReader& data = object.data;
    if (object.hasData)
        return; // in the data store
    if (data.B())
        return;
    data.B();
    const std::uint32_t version = data.BS();
    if (version == kText) {
        WriteTextForm(object);
    } else if (version == kBinary) {
        // It tells its own end; what follows is no part of what is read.
        std::string save;
        data.Copy(data.Left() / 8, save);
        object.bodies.emplace_back(object.own, std::move(save));
    }
}

bool HoldsBinaryBody(const Object& object)
{
    BitReader data = object.data;
    if (object.hasData || data.B())
        return false;
    data.B();
    return data.BS() == kBinary;
}

} // namespace sm::drawing::dwg
