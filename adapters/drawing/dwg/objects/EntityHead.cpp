// SPDX-License-Identifier: GPL-3.0-or-later
// What all entities have in front of their own fields.
#include "dwg/objects/Object.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

/// Values of the two-bit fields that tell where a property comes from.
constexpr std::uint32_t kByBlockFlag = 1, kContinuousFlag = 2, kHandleFlag = 3;
constexpr std::uint32_t kOwnerStored = 0, kPaperMode = 1, kModelMode = 2;
constexpr std::uint32_t kLineweightByLayerIndex = 29;

/// Hundredths of a millimetre by the index that is stored; 29 by layer, 30 by block, 31 default.
constexpr std::array<std::int16_t, 32> kLineweights{0,   5,   9,  13, 15, 18, 20,  25,  30,  35,  40,
                                                    50,  53,  60, 70, 80, 90, 100, 106, 120, 140, 158,
                                                    200, 211, -3, -3, -3, -3, -3,  -1,  -2,  -3};

} // namespace

std::int32_t LineweightOf(std::uint32_t index)
{
    return kLineweights[index & 31];
}

void Object::ReadEntityColor()
{
    if (Before(Release::R2004)) {
        m_look.index = data.SignedBS();
        return;
    }
    constexpr std::uint32_t kIndex = 0x1FF, kRgb = 0x8000, kBook = 0x4000, kTransparency = 0x2000;
    const std::uint32_t value = data.BS();
    m_look.index = static_cast<std::int32_t>(value & kIndex);
    if ((value & kRgb) != 0 && (value & kBook) == 0)
        m_look.rgb = data.BL() & 0xFFFFFF;
    if ((value & kTransparency) != 0)
        m_look.transparency = data.BL();
    m_look.color = (value & kBook) != 0 ? 1 : 0; // its handle follows
}

void Object::ReadEntityHead()
{
    m_look = {};
    if (data.B()) {
        graphicsSize = Since(Release::R2010) ? data.BLL() : data.RL();
        graphics = data.At();
        data.Skip(graphicsSize > data.Left() / 8 ? data.Left() + 1 : graphicsSize * 8);
    }
    if (Before(Release::R2000))
        SetStreams(m_frame.first + data.RL());
    ReadEmbeddedHead();
}

void Object::ReadEmbeddedHead()
{
    mode = data.BB();
    const std::uint32_t reactors = data.BL();
    const bool byLayer = Before(Release::R2000) && data.B();
    const bool hasExtension = Before(Release::R2004) || !data.B();
    const bool hasLinks = Before(Release::R2004) && !data.B();
    hasData = Since(Release::R2013) && data.B();
    ReadEntityColor();
    m_look.linetypeScale = data.BD();
    m_look.linetypeFlags = Since(Release::R2000) ? data.BB() : byLayer ? 0 : kHandleFlag;
    std::uint32_t others = 0; // handles that nothing here needs: of the material, of visual styles
    if (Since(Release::R2007)) {
        others += data.BB() == kHandleFlag ? 1 : 0;
        (void)data.RC();
    }
    m_look.plotStyleFlags = Since(Release::R2000) ? data.BB() : 0;
    const std::uint32_t materials = others;
    std::uint32_t visualStyles = 0;
    for (int i = 0; i < 3 && Since(Release::R2010); ++i)
        visualStyles += data.B() ? 1 : 0;
    m_look.invisible = (data.BS() & 1) != 0;
    m_look.lineweight = Since(Release::R2000) ? data.RC() : kLineweightByLayerIndex;
    ReadEntityLinks(reactors, hasExtension, hasLinks, materials, visualStyles);
}

void Object::ReadEntityLinks(std::uint32_t reactors, bool hasExtension, bool hasLinks, std::uint32_t materials,
                             std::uint32_t visualStyles)
{
    owner = mode == kOwnerStored ? H()
            : mode == kPaperMode ? names.paperSpace
            : mode == kModelMode ? names.modelSpace
                                 : 0;
    SkipH(reactors);
    extension = hasExtension ? H() : 0;
    const auto readLinetype = [this] { m_look.linetype = m_look.linetypeFlags == kHandleFlag ? H() : 0; };
    if (Before(Release::R2000)) {
        m_look.layer = H();
        readLinetype();
    }
    if (Before(Release::R2004)) {
        previous = hasLinks ? H() : own - 1;
        next = hasLinks ? H() : own + 1;
    }
    if (m_look.color != 0)
        m_look.color = H();
    if (Since(Release::R2000)) {
        m_look.layer = H();
        readLinetype();
    }
    SkipH(materials);
    m_look.plotStyle = m_look.plotStyleFlags == kHandleFlag ? H() : 0;
    SkipH(visualStyles);
}

void Object::WriteEntityHead()
{
    WriteObjectHead();
    WriteName(8, m_look.layer);
    if (m_look.linetypeFlags == kByBlockFlag)
        sink.Text(6, "ByBlock");
    else if (m_look.linetypeFlags == kContinuousFlag)
        sink.Text(6, "Continuous");
    else
        WriteName(6, m_look.linetype);
    WriteEntityColor();
    if (m_look.linetypeScale != 1)
        sink.Real(48, m_look.linetypeScale);
    if (m_look.invisible)
        sink.Integer(60, 1);
    if (m_look.lineweight != kLineweightByLayerIndex)
        sink.Integer(370, LineweightOf(m_look.lineweight));
    if (m_look.plotStyle != 0)
        sink.HandleTag(390, m_look.plotStyle);
    else if (m_look.plotStyleFlags != 0)
        sink.Integer(380, m_look.plotStyleFlags);
}

void Object::WriteEntityColor()
{
    if (m_look.color != 0)
        if (const auto book = names.colors.find(m_look.color); book != names.colors.end()) {
            sink.Integer(62, m_look.index);
            if (const auto rgb = book->second.Rgb())
                sink.Integer(420, *rgb);
            m_look.rgb.reset();
        }
    if (m_look.color == 0 && m_look.index != kByLayer)
        sink.Integer(62, m_look.index);
    if (m_look.rgb)
        sink.Integer(420, *m_look.rgb);
    if (m_look.transparency)
        sink.Integer(440, *m_look.transparency);
}

} // namespace sm::drawing::dwg
