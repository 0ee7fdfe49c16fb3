// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled shape files (.shx): figures of pen strokes, asked by number or by name.
//
// Three layouts are read, by their first line: "AutoCAD-86 shapes 1.x" (an index of numbers and lengths, then the
// shapes), "AutoCAD-86 unifont 1.0" (number, length and bytes of one shape after the other) and "AutoCAD-86
// bigfont 1.0" (size of an index entry, their count, the ranges of bytes that lead a pair, each two words; then number,
// length and place of each shape, whose numbers are two bytes of a code page). A shape is its name, a NUL and pen
// codes: 0 end, 1 and 2 pen down and up, 3 and 4 divide and multiply the unit, 5 and 6 keep and return to a place, 7
// another shape, 8 and 9 steps, 10 to 13 arcs, 14 what only vertical text does, from 16 on vectors of a length and one
// of 16 directions.
#pragma once

#include "render/Matrix.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace sm::render {

class ShapeFile {
public:
    /// Null when the file is missing or no shape file.
    static std::unique_ptr<ShapeFile> Open(const std::string& path);
    static std::unique_ptr<ShapeFile> FromBytes(std::string bytes);

    /// Number of a shape, letter case aside; 0: there is none of that name.
    [[nodiscard]] std::uint16_t NumberOf(std::string_view name) const;
    [[nodiscard]] bool Has(std::uint16_t number) const;
    /// The bytes of a shape, its name left out; empty when there is none.
    [[nodiscard]] std::string_view Codes(std::uint16_t number) const;
    [[nodiscard]] bool IsUnifont() const { return m_kind == Kind::Unifont; }
    [[nodiscard]] bool IsBigFont() const { return m_kind == Kind::BigFont; }
    /// Big fonts: the square that figures are drawn in which others show in another size, shape units.
    [[nodiscard]] Vec2 Cell() const;

private:
    bool Index();
    bool IndexShapes(std::size_t at);
    bool IndexUnifont(std::size_t at);
    bool IndexBigFont(std::size_t at);
    [[nodiscard]] std::uint16_t Word(std::size_t at) const;
    void Add(std::uint16_t number, std::size_t at, std::size_t length);

    std::string m_bytes;
    std::map<std::uint16_t, std::string_view> m_codes;
    std::map<std::string, std::uint16_t, std::less<>> m_names; ///< capitals
    enum class Kind : std::uint8_t { Shapes, Unifont, BigFont } m_kind = Kind::Shapes;
};

} // namespace sm::render
