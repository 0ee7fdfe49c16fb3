// SPDX-License-Identifier: GPL-3.0-or-later
// Windows metafiles: records of 16-bit words, a size, a function and its arguments, the last one first.
#pragma once

#include "ole/LittleEndian.h"
#include "ole/MetafilePen.h"

#include <map>

namespace sm::render {

class WindowsMetafile {
public:
    WindowsMetafile(std::string_view bytes, OlePicture& picture) : m_bytes(bytes), m_pen(picture) {}

    void Read()
    {
        constexpr std::uint32_t kPlaceable = 0x9AC6CDD7;
        Vec2 origin, extent;
        if (U32(m_bytes, 0) == kPlaceable) {
            origin = {static_cast<double>(S16(m_bytes, 6)), static_cast<double>(S16(m_bytes, 8))};
            extent = Vec2{static_cast<double>(S16(m_bytes, 10)), static_cast<double>(S16(m_bytes, 12))} - origin;
            constexpr std::size_t kPlaceableHeader = 22;
            m_bytes = Part(m_bytes, kPlaceableHeader, m_bytes.size());
        }
        const unsigned kind = U16(m_bytes, 0);
        if ((kind != 1 && kind != 2) || U16(m_bytes, 2) != kHeaderWords) {
            return;
        }
        FindWindow(origin, extent);
        m_pen.Begin(origin, extent);
        ForEachRecord([this](unsigned function, std::string_view record) { Play(function, record); });
    }

private:
    /// The functions of records.
    static constexpr std::uint16_t kEnd = 0, kSaveState = 0x1E, kRealizePalette = 0x35, kCreatePalette = 0xF7,
                                   kSetBackMode = 0x102, kSetMapMode = 0x103, kSetRasterOperation = 0x104,
                                   kSetFillRule = 0x106, kSetStretchMode = 0x107, kSetCharacterExtra = 0x108,
                                   kRestoreState = 0x127, kSelectClip = 0x12C, kSelect = 0x12D, kSetTextAlign = 0x12E,
                                   kCreateDibPattern = 0x142, kDeleteObject = 0x1F0, kCreatePattern = 0x1F9,
                                   kSetBackColor = 0x201, kSetTextColor = 0x209, kSetJustification = 0x20A,
                                   kSetWindowOrigin = 0x20B, kSetWindowExtent = 0x20C, kSetViewOrigin = 0x20D,
                                   kSetViewExtent = 0x20E, kLineTo = 0x213, kMoveTo = 0x214, kSelectPalette = 0x234,
                                   kCreatePen = 0x2FA, kCreateFont = 0x2FB, kCreateBrush = 0x2FC, kPolygon = 0x324,
                                   kPolyline = 0x325, kClipTo = 0x416, kEllipse = 0x418, kRectangle = 0x41B,
                                   kTextOut = 0x521, kPolygons = 0x538, kRoundRectangle = 0x61C, kPatternBlock = 0x61D,
                                   kEscape = 0x626, kCreateRegion = 0x6FF, kArc = 0x817, kPie = 0x81A, kChord = 0x830,
                                   kDibBlock = 0x940, kTextOutWide = 0xA32, kDibStretchBlock = 0xB41,
                                   kStretchDib = 0xF43;
    static constexpr std::uint64_t kHeaderWords = 9, kWord = 2, kRecordHead = 6;
    template <class Take> void ForEachRecord(Take take) const
    {
        for (std::uint64_t at = std::uint64_t{kHeaderWords} * kWord; at + kRecordHead <= m_bytes.size();) {
            const std::uint64_t size = std::uint64_t{U32(m_bytes, at)} * kWord;
            const unsigned function = U16(m_bytes, at + 4);
            if (size < kRecordHead || function == kEnd) {
                return;
            }
            take(function, Part(m_bytes, at + kRecordHead, size - kRecordHead));
            at += size;
        }
    }
    /// The first window counts for the whole picture.
    void FindWindow(Vec2& origin, Vec2& extent) const;
    /// Points of arguments have their y in front.
    [[nodiscard]] static Vec2 PointAt(std::string_view record, std::uint64_t at)
    {
        return {static_cast<double>(S16(record, at + kWord)), static_cast<double>(S16(record, at))};
    }
    /// Points of lists have their x in front.
    [[nodiscard]] static Vec2 ListedAt(std::string_view record, std::uint64_t at)
    {
        return {static_cast<double>(S16(record, at)), static_cast<double>(S16(record, at + kWord))};
    }
    void Play(unsigned function, std::string_view record);
    bool PlayState(unsigned function, std::string_view record);
    static bool HasNoInk(unsigned function);
    bool PlayObject(unsigned function, std::string_view record);
    /// New objects take the lowest number that is free.
    void Keep(MetaObject object);
    void Select(unsigned number);
    static MetaPen PenOf(std::string_view record);
    static MetaFont FontOf(std::string_view record);
    bool PlayShape(unsigned function, std::string_view record);
    void AppendPoints(Path& path, std::string_view record, std::uint64_t at, unsigned count) const;
    void AppendPolygons(Path& path, std::string_view record) const;
    /// Bottom, right, top, left.
    [[nodiscard]] Box2 BoxAt(std::string_view record, std::uint64_t at) const;
    /// Runs counter-clockwise from the ray through one point to the ray through another.
    void PlayArc(unsigned function, std::string_view record);
    void PlayText(std::string_view record);
    void PlayWideText(std::string_view record);
    bool PlayBlock(unsigned function, std::string_view record);
    bool PlayImage(std::uint32_t operation, std::string_view dib, Vec2 corner, Vec2 size);
    std::string_view m_bytes;
    MetafilePen m_pen;
    std::map<unsigned, MetaObject> m_objects;
};

} // namespace sm::render
