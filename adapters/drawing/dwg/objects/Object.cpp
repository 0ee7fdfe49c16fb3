// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/Object.h"

#include <numbers>

namespace sm::drawing::dwg {

namespace {

/// No object needs more reactors; a larger number tells of a lost place.
constexpr std::uint32_t kMostReactors = 100'000;

bool IsDoubleByte(const FileFacts& facts)
{
    switch (facts.codePage) {
    case 22:
    case 24:
    case 25:
    case 26:
    case 31:
    case 38:
    case 39:
    case 40:
    case 41:
    case 42:
        return true;
    default:
        return false;
    }
}

} // namespace

const ObjectClass* Names::ClassOf(std::uint32_t type) const
{
    const auto found =
        std::lower_bound(classes.begin(), classes.end(), type,
                         [](const ObjectClass& one, std::uint32_t number) { return one.number < number; });
    return found == classes.end() || found->number != type ? nullptr : &*found;
}

Frame ReadFrame(std::string_view objects, std::uint64_t offset, Release release)
{
    Frame frame;
    BitReader bits(objects, offset * 8, objects.size() * 8);
    const std::uint64_t size = bits.MS();
    const std::uint64_t linkBits = release >= Release::R2010 ? bits.UMC() : 0;
    frame.first = bits.At();
    if (bits.Overrun() || size < 3 || size > bits.Left() / 8)
        return frame;
    frame.end = frame.first + size * 8;
    frame.type = release >= Release::R2010 ? bits.BOT() : bits.BS();
    if (release >= Release::R2010)
        frame.links = linkBits < size * 8 ? frame.end - linkBits : frame.end;
    frame.sound = !bits.Overrun() && linkBits <= size * 8;
    return frame;
}

Object::Object(const Container& container, TagSink& tags, const Names& known)
    : Fields(container.FileRelease(), IsDoubleByte(container.Facts())), sink(tags), names(known),
      m_objects(container.Objects())
{
}

bool Object::Open(std::uint64_t offset, Handle expected)
{
    m_frame = ReadFrame(m_objects, offset, release);
    if (!m_frame.sound)
        return false;
    Fields::Open(BitReader(m_objects, m_frame.first, m_frame.end));
    type = Since(Release::R2010) ? data.BOT() : data.BS();
    std::uint64_t links = m_frame.links;
    if (Since(Release::R2000) && Before(Release::R2010))
        links = m_frame.first + data.RL();
    const RawHandle handle = data.H();
    own = handle.value;
    if (handle.code != 0 || own != expected || links > m_frame.end || data.Overrun())
        return false;
    if (Since(Release::R2000))
        SetStreams(links);
    SkipExtended();
    graphics = graphicsSize = 0;
    hasData = false;
    owner = extension = previous = next = firstMember = lastMember = annotation = 0;
    members.clear();
    return !data.Overrun();
}

void Object::SetStreams(std::uint64_t links)
{
    data.EndAt(links);
    if (Since(Release::R2007))
        FindTexts(m_objects, links);
    SetLinks(BitReader(m_objects, links, m_frame.end));
}

void Object::SkipExtended()
{
    m_extended = data.At();
    m_hasExtended = false;
    while (const std::uint64_t size = data.BS()) {
        m_hasExtended = true;
        (void)data.H();
        data.Skip(size * 8);
    }
}

void Object::ReadObjectHead()
{
    if (Before(Release::R2000))
        SetStreams(m_frame.first + data.RL());
    const std::uint32_t reactors = data.BL();
    const bool hasExtension = Before(Release::R2004) || !data.B();
    hasData = Since(Release::R2013) && data.B();
    if (reactors > kMostReactors) {
        data.Fail();
        return;
    }
    owner = H();
    SkipH(reactors);
    extension = hasExtension ? H() : 0;
}

void Object::WriteObjectHead(int handle)
{
    sink.HandleTag(handle, own);
    if (extension != 0) {
        sink.Text(102, "{ACAD_XDICTIONARY");
        sink.HandleTag(360, extension);
        sink.Text(102, "}");
    }
    sink.HandleTag(330, owner);
}

void Object::WriteName(int code, Handle record)
{
    if (const std::string_view name = names.Of(record); !name.empty())
        sink.Text(code, name);
}

void Object::ReadMembers(std::uint32_t count)
{
    if (Before(Release::R2004)) {
        firstMember = H();
        lastMember = H();
    }
    for (; count > 0 && Links().Left() >= 8; --count)
        members.push_back(H());
}

void Object::WriteAngle(int code, double radians)
{
    sink.Real(code, radians * (180 / std::numbers::pi));
}

void Object::WriteThickness(double thickness)
{
    if (thickness != 0)
        sink.Real(39, thickness);
}

void Object::WriteExtrusion(const Vec3& normal)
{
    if (normal != Vec3{0, 0, 1})
        sink.Point(210, normal);
}

void Object::WriteColor(const Color& color, int index, int rgb)
{
    sink.Integer(index, color.Index());
    if (const auto value = color.Rgb())
        sink.Integer(rgb, *value);
    if (!color.name.empty())
        sink.Text(rgb + 10, color.name);
}

void Object::WriteGraphics()
{
    if (graphicsSize == 0)
        return;
    std::string bytes;
    BitReader(m_objects, graphics, m_frame.end).Copy(graphicsSize, bytes);
    sink.Integer(160, static_cast<std::int64_t>(bytes.size()));
    sink.Chunks(310, bytes);
}

} // namespace sm::drawing::dwg
