// SPDX-License-Identifier: GPL-3.0-or-later
// The pen that follows the codes of a shape.
#pragma once

#include "render/Canvas.h"
#include "shapes/ShapeFile.h"

#include <vector>

namespace sm::render {

class ShapePen {
public:
    ShapePen(const ShapeFile& file, Path& path) : m_file(file), m_path(path) {}
    /// `depth`: how many shapes deep this one lies in another.
    void Draw(std::uint16_t number, int depth);
    [[nodiscard]] Vec2 At() const { return m_at; }

private:
    /// Reads one shape's bytes; 0 behind their end.
    struct Reader {
        std::string_view bytes;
        std::size_t at = 0;
        [[nodiscard]] bool AtEnd() const { return at >= bytes.size(); }
        std::uint8_t Byte() { return AtEnd() ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes[at++]); }
        double Signed() { return static_cast<std::int8_t>(Byte()); }
    };
    void Obey(std::uint8_t code, Reader& reader, int depth);
    void Arc(std::uint8_t code, Reader& reader);
    static Vec2 StepOf(Reader& reader);
    void Skip(Reader& reader);
    void Nested(Reader& reader, int depth);
    void Resized(Reader& reader, int depth);
    void Vector(std::uint8_t code);
    void Step(Vec2 by);
    void OctantArc(Reader& reader);
    void FractionalArc(Reader& reader);
    void Turn(double radius, double startDegrees, double sweepDegrees);
    void Bulge(Vec2 by, double bulge);
    void Reach();

    const ShapeFile& m_file;
    Path& m_path;
    Vec2 m_at;
    double m_unit = 1;
    bool m_down = true;
    bool m_started = false; ///< the path stands where the pen is
    int m_budget = 20000;   ///< codes that may still be obeyed
    std::vector<Vec2> m_kept;
};

/// Appends the strokes of a shape in shape units, from its own origin; false when the file has no such shape.
bool AppendShape(const ShapeFile& file, std::uint16_t number, Path& path);
/// The same; `end` is where the pen stands afterwards: the next letter's origin in a font.
bool AppendShape(const ShapeFile& file, std::uint16_t number, Path& path, Vec2& end);

} // namespace sm::render
