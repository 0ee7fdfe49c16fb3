// SPDX-License-Identifier: GPL-3.0-or-later
// What metafiles draw with: their objects, their state, and the steps that come of it.
#pragma once

#include "ole/OlePicture.h"

#include <cstdint>
#include <map>
#include <variant>

namespace sm::render {

struct MetaPen {
    std::uint32_t color = 0;
    double width = 0; ///< logical units
    bool none = false;
};
struct MetaBrush {
    std::uint32_t color = 0xFFFFFF;
    bool none = false;
};
struct MetaFont {
    std::string family;
    double height = 0; ///< logical units: above 0 of a line, below 0 of the letters; 0: as is usual
    double degrees = 0;
    bool bold = false, italic = false, underline = false, struckOut = false;
    unsigned characterSet = 1;
};
using MetaObject = std::variant<std::monostate, MetaPen, MetaBrush, MetaFont>;

/// 0xRRGGBB of a colour as metafiles hold it (blue on top, a kind in the highest byte).
inline std::uint32_t MetaColor(std::uint32_t value)
{
    return (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
}

class MetafilePen {
public:
    explicit MetafilePen(OlePicture& picture) : m_picture(picture) {}

    struct State {
        MetaPen pen;
        MetaBrush brush;
        MetaFont font;
        std::uint32_t textColor = 0, backColor = 0xFFFFFF;
        bool backFilled = true;
        FillRule rule = FillRule::EvenOdd;
        unsigned textAlign = 0;
        Vec2 at;                    ///< where lines and texts go on, logical
        Vec2 origin, extent{1, 1};  ///< the window on the logical plane
        std::optional<Matrix2> map; ///< from the logical plane to the picture's, in place of the window
        Box2 clip;                  ///< on the picture's plane
    };
    State state;

    /// Sets the window that the whole picture shows; the picture gets its size.
    void Begin(Vec2 origin, Vec2 extent);
    void Select(const MetaObject& object);
    void Save() { m_saved.push_back(state); }
    /// Below 0: so many back; above 0: the state with that number.
    void Restore(int which);
    void ClipTo(Vec2 a, Vec2 b);
    void EndClip();

    [[nodiscard]] Vec2 Map(Vec2 logical) const;
    [[nodiscard]] double Scale() const; ///< of lengths
    void Fill(const Path& path);        ///< with the brush; paths are on the picture's plane
    void Fill(const Path& path, std::uint32_t color);
    void Stroke(const Path& path);
    void Shape(const Path& path)
    {
        Fill(path);
        Stroke(path);
    }
    /// `advance`: that the characters shall take, logical; 0: as the font has it.
    void Text(const std::string& utf8, Vec2 at, double advance);
    /// Paints a box by a raster operation that needs no picture; false, and nothing is painted, for any other
    /// operation.
    bool Paint(std::uint32_t operation, Vec2 corner, Vec2 size);
    void Image(std::string_view dib, Vec2 corner, Vec2 size);
    void LeaveOut() { ++m_picture.leftOut; }

private:
    [[nodiscard]] Path BoxOf(Vec2 corner, Vec2 size) const;
    OleStep& Add();
    OlePicture& m_picture;
    std::vector<State> m_saved;
};

} // namespace sm::render
