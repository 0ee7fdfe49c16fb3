// SPDX-License-Identifier: GPL-3.0-or-later
// The symbol tables of a drawing, as plain records. Texts are UTF-8.
#pragma once

#include "base/Geometry.h"
#include "drawing/Properties.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

/// What a layer looks like in one viewport, where that differs.
struct LayerOverride {
    Handle viewport = 0;
    std::optional<std::int16_t> color;      ///< 1 to 255
    std::optional<std::uint32_t> trueColor; ///< 0xRRGGBB
    std::optional<std::uint32_t> linetype;  ///< index into the linetypes
    std::optional<std::int16_t> lineweight;
    std::optional<std::uint8_t> transparency; ///< 0 clear to 255 opaque
};

struct Layer {
    std::string name;
    Handle handle = 0;
    std::int16_t color = 7;                 ///< 1 to 255
    std::optional<std::uint32_t> trueColor; ///< 0xRRGGBB
    std::uint32_t linetype = 0;             ///< index into the linetypes
    std::int16_t lineweight = kLineweightDefault;
    bool off = false;
    bool frozen = false;
    bool plotted = true;
    std::string plotStyle; ///< named plot style; empty in drawings with colour-dependent styles
    std::vector<LayerOverride> overrides;
    std::optional<std::uint8_t> transparency; ///< 0 clear to 255 opaque
};

/// A named plot style that entities and layers may refer to (entries of dictionary ACAD_PLOTSTYLENAME).
struct PlotStyleName {
    Handle handle = 0;
    std::string name;
};

/// One dash (length > 0), gap (< 0) or dot (0) of a linetype; with text or shape when `kind` says so.
struct LinetypeElement {
    enum class Kind : std::uint8_t { Plain, Text, Shape } kind = Kind::Plain;
    double length = 0; ///< drawing units
    std::string text;
    std::uint16_t shape = 0;
    std::uint32_t style = 0;        ///< index into the text styles
    double scale = 1, rotation = 0; ///< rotation in degrees
    bool absoluteRotation = false;
    Vec2 offset;
};

struct Linetype {
    std::string name; ///< "Continuous", "ByLayer", "ByBlock" are always there
    Handle handle = 0;
    std::string description;
    double patternLength = 0;
    std::vector<LinetypeElement> elements; ///< empty: continuous
};

struct TextStyle {
    std::string name;
    Handle handle = 0;
    std::string fontFile;    ///< "txt", "arial.ttf"; as in the file
    std::string bigFontFile; ///< for two-byte characters; mostly empty
    std::string family;      ///< TrueType family from the extended data; empty when not given
    bool bold = false, italic = false;
    double fixedHeight = 0; ///< 0: not fixed
    double widthFactor = 1;
    double obliqueAngle = 0; ///< degrees
    bool backward = false, upsideDown = false, vertical = false;
    bool isShapeFile = false;
};

/// How deep a view goes, and whether what is further away is smaller in it.
struct ViewDepth {
    std::int32_t mode = 0;      ///< bits: 1 perspective, 2 ends in front, 4 ends behind, 16 in front not at the eye
    double lens = 50;           ///< mm; of perspective views
    double front = 0, back = 0; ///< of the planes where it ends: from the target towards the eye
    [[nodiscard]] bool Perspective() const { return (mode & 1) != 0; }
    /// At the eye means nothing in a view without one, and a perspective view ends there anyway.
    [[nodiscard]] bool EndsInFront() const { return (mode & 2) != 0 && (mode & 16) != 0; }
    [[nodiscard]] bool EndsBehind() const { return (mode & 4) != 0; }
    friend bool operator==(const ViewDepth&, const ViewDepth&) = default;
};

struct NamedView {
    std::string name;
    bool paperSpace = false;
    Vec2 center; ///< in the view's display plane
    double width = 0, height = 0;
    Vec3 direction{0, 0, 1};
    Vec3 target;
    double twist = 0; ///< degrees
    ViewDepth depth;
};

/// The active viewport of the model tab (VPORT "*Active"): what plot type Display shows.
struct ModelView {
    Vec2 center;
    double height = 0;
    double aspect = 1; ///< width / height
    Vec3 direction{0, 0, 1};
    Vec3 target;
    double twist = 0; ///< degrees
    ViewDepth depth;
};

} // namespace sm::drawing
