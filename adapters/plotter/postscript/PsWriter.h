// SPDX-License-Identifier: GPL-3.0-or-later
// The canvas that writes a page's PostScript.
//
// The body speaks in the operators of PDF content streams, one token form each, in whole units:
//   x y m   x y l   x1 y1 x2 y2 x3 y3 c   h   S  f  f*  q  Q  W  W*  n
//   width w   cap J   join j   gray G|g   r g b RG|rg
//   q a b c d e f cm /In Do Q
//   /An gs                        opacity n of 255
//   /OC /Ln BDC ... EMC           what layer n shows, when layers are kept
//   BT /Fn size Tf x y Td (text) Tj ET              upright text
//   BT /Fn 1 Tf a b c d e f Tm (text) Tj ET         any other; [(text) n (text)] TJ where glyphs are moved
//   q BT 3 Tr ... ET Q                              text that doesn't show
// Strings are in parentheses where all their bytes are plain ASCII, else <hexadecimal>.
#pragma once

#include "fonts/FontBook.h"
#include "postscript/BodyText.h"
#include "postscript/PathText.h"
#include "postscript/PsPictures.h"
#include "render/Canvas.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace sm::plotter {

/// Coordinates of a page are whole units of 0.0065 point, whatever the resolution that it is printed with: a place is
/// at most 0.0046 point off, half the diagonal, which leaves room for readers that count in single precision.
inline constexpr double kUnitsPerInch = 72 / 0.0065;

class PsWriter final : public render::ICanvas {
public:
    /// `unitsPerInch`: the step of coordinates. No pen is thinner than a dot of `resolution`, in dots per inch; 0
    /// stands for a unit. A very long page waits in a file in `folder`.
    /// Fonts go into `fonts`, which outlives the writer, or into a book of its own.
    PsWriter(double unitsPerInch, std::string folder, double resolution = 0, FontBook* fonts = nullptr);
    /// From here on the marks of layers are written.
    void KeepLayers() { m_keepsLayers = true; }

    void BeginEntity(const render::EntityMark& mark) override { m_wantedLayer = mark.shownBy; }
    void PushClip(const render::Path& path, render::FillRule rule) override;
    void PopClip() override;
    void Stroke(const render::Path& path, const render::StrokeStyle& style) override;
    void Fill(const render::Path& path, std::uint32_t color, render::FillRule rule) override;
    void Text(const render::TextRun& run) override;
    void Image(const render::Picture& picture, const render::Matrix2& toPaper, std::uint32_t color) override;

    /// Ends the last stroke and closes what clips are open.
    void Finish();
    [[nodiscard]] BodyText& Body() { return m_body; }
    [[nodiscard]] const FontBook& Fonts() const { return m_fonts; }
    [[nodiscard]] PsPictures& Pictures() { return m_pictures; }
    /// Something was drawn that shows, whatever its colour.
    [[nodiscard]] bool HasInk() const { return m_hasInk; }
    /// Layers that something was written for.
    [[nodiscard]] const std::set<std::uint32_t>& Layers() const { return m_layers; }

private:
    /// Where the path being written stands.
    struct Pencil {
        Dot start, at;
        bool onPaper = false; ///< `at` is the interpreter's current point
        bool drawn = false;   ///< the sub-path has a segment
        bool asked = false;   ///< the sub-path was asked for a segment, perhaps of no length
    };
    struct State {
        double width = -1;
        int cap = -1, join = -1;
        std::uint32_t color = kNoColor;                   ///< as PostScript has it, for both
        std::uint32_t stroke = kNoColor, fill = kNoColor; ///< as PDF has them
        std::uint32_t transparency = 0;
    };
    static constexpr std::uint32_t kNoColor = 0xFFFFFFFF;

    [[nodiscard]] Dot ToDots(Vec2 p) const;
    void Write(const char* op);
    void WriteNumber(double value, int digits);
    void SetPen(const render::StrokeStyle& style);
    void SetColor(std::uint32_t color, bool strokes);
    void SetTransparency(std::uint32_t color);
    void EnterLayer();
    void EndStroke();
    /// Writes the path's segments; `chains`: a sub-path may go on where the last one ended.
    void Draw(const render::Path& path, bool chains);
    void BeginSubPath();
    void LineTo(Dot p);
    void CubicTo(Dot a, Dot b, Dot c);
    void Close();
    void EndSubPath();
    void WriteRun(const render::TextRun& run, std::size_t from, std::size_t to);
    void WritePlace(std::uint16_t font, const render::Matrix2& m, bool moved);
    std::size_t WriteGlyphs(const render::TextRun& run, std::size_t from, std::size_t to);
    GlyphCode CodeOf(const render::TextRun& run, std::size_t i);
    void PutString(std::string_view codes);
    bool CutRun(const render::TextRun& run);
    void TextAsPaths(const render::TextRun& run);
    void WritePieces(const render::TextRun& run, std::size_t count);
    double AdvanceOf(const render::TextRun& run, std::size_t i) const;

    BodyText m_body;
    FontBook m_ownFonts;
    FontBook& m_fonts;
    PsPictures m_pictures;
    double m_units;  ///< of a millimetre
    double m_onePen; ///< millimetres: the thinnest pen
    State m_state;
    std::vector<State> m_saved;
    render::StrokeStyle m_pen; ///< of the open stroke
    Pencil m_pencil;
    PathText m_path;                  ///< being written; of the open stroke, if there is one
    std::size_t m_openSegments = 0;   ///< of the open stroke; 0: none is open
    std::string m_codes, m_shown;     ///< of the string being written; what is shown so far
    std::optional<std::size_t> m_cut; ///< of the stroked font in use
    render::TextRun m_cutRun;
    render::Path m_glyph, m_strokes;
    bool m_keepsLayers = false, m_hasInk = false;
    std::uint32_t m_wantedLayer = 0;
    std::optional<std::uint32_t> m_layer; ///< that is open
    std::set<std::uint32_t> m_layers;
};

} // namespace sm::plotter
