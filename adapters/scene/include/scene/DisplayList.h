// SPDX-License-Identifier: GPL-3.0-or-later
// A layout as it was drawn once: finished shapes, packed, ready to be shown at any zoom.
//
// Coordinates are those of the scene, millimetres on its sheet. Each item has an origin of its own, so that 32 bits are
// enough for its points wherever it lies.
#pragma once

#include "render/Canvas.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace sm::scene {
using render::Matrix2;
using render::Path;

/// A point or vector, in millimetres from its item's origin.
struct Spot {
    float x = 0, y = 0;
};

enum class ItemKind : std::uint8_t { Stroke, Fill, Text, Image };

struct Item {
    Vec2 origin;
    float left = 0, bottom = 0, right = 0, top = 0; ///< its box, from the origin; pens have no width here
    std::uint32_t first = 0;                        ///< of its points, or of its text or picture
    std::uint32_t verb = 0, verbs = 0;              ///< strokes and fills
    std::uint32_t color = 0;                        ///< 0xTTRRGGBB as in Canvas.h
    float width = 0;                                ///< mm, of the pen; 0 the thinnest line that shows
    std::uint32_t clip = 0;                         ///< 0: none
    ItemKind kind = ItemKind::Stroke;
    render::LineCap cap = render::LineCap::Round;
    render::LineJoin join = render::LineJoin::Round;
    render::FillRule rule = render::FillRule::NonZero;
    bool endless = false; ///< ends where the scene does, and counts for no extents

    [[nodiscard]] Box2 Box() const
    {
        return {{origin.x + left, origin.y + bottom}, {origin.x + right, origin.y + top}};
    }
};

/// What shows of the items that name it: the common part of its path and its parent's.
struct Clip {
    Path path;
    render::FillRule rule = render::FillRule::NonZero;
    Box2 box;                 ///< of what shows, parents included
    bool rectangular = false; ///< the box is all there is to it
    std::uint32_t parent = 0;
};

struct Glyph {
    Path outline; ///< em
    bool stroked = false;
};

/// A run of glyphs; `a` to `d` map the em square to millimetres from the item's origin.
struct GlyphRun {
    float a = 1, b = 0, c = 0, d = 1;
    std::uint32_t first = 0, count = 0; ///< of its glyphs
    bool stroked = false;
};

struct PlacedGlyph {
    std::uint32_t glyph = 0;
    Spot at; ///< em
};

struct PlacedPicture {
    std::shared_ptr<const render::Picture> picture;
    Matrix2 toScene; ///< from the unit square
};

/// Successive items and the box round them.
struct Chunk {
    std::uint32_t first = 0, count = 0;
    Box2 box;
};

struct DisplayList {
    std::vector<Item> items; ///< in draw order
    std::vector<Chunk> chunks;
    std::vector<Spot> points;
    std::vector<render::Verb> verbs;
    std::vector<Clip> clips{Clip{}};
    std::vector<Glyph> glyphs;
    std::vector<GlyphRun> runs;
    std::vector<PlacedGlyph> placed;
    std::vector<PlacedPicture> pictures;

    [[nodiscard]] std::span<const Spot> PointsOf(const Item& item) const
    {
        return std::span(points).subspan(item.first);
    }
    [[nodiscard]] std::span<const render::Verb> VerbsOf(const Item& item) const
    {
        return std::span(verbs).subspan(item.verb, item.verbs);
    }
    /// The box of everything that is drawn, endless lines aside; as far as it shows.
    [[nodiscard]] Box2 Extents() const;
    [[nodiscard]] std::size_t Bytes() const;
};

} // namespace sm::scene
