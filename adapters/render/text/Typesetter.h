// SPDX-License-Identifier: GPL-3.0-or-later
// Sets pieces of one line: characters become glyphs along the x axis.
#pragma once

#include "fonts/FontLibrary.h"
#include "text/BidiRuns.h"
#include "text/LaidParts.h"

#include <optional>
#include <string_view>
#include <vector>

namespace sm::render {

/// Where lower letters stand beside higher ones of their line (DXF reference, MTEXT code \A).
enum class LineAlign : std::uint8_t { Bottom, Center, Top };

/// How a piece of text looks.
struct TypeStyle {
    const Font* font = nullptr;
    double height = 1;   ///< of capital letters, drawing units
    double width = 1;    ///< letters are that much wider
    double oblique = 0;  ///< degrees to the right
    double tracking = 1; ///< letters stand that much further apart
    std::optional<TextColor> color;
    bool under = false, over = false, strike = false;
    LineAlign align = LineAlign::Bottom;
};

class Typesetter {
public:
    Typesetter(FontLibrary& fonts, LaidParts& parts) : m_fonts(fonts), m_parts(parts) {}
    /// Width of a text in drawing units.
    double Measure(std::string_view text, const TypeStyle& style);
    /// Sets the text from `pen` on (drawing units, the base line's start) and returns its width.
    double Set(std::string_view text, const TypeStyle& style, Vec2 pen);
    /// What of a text's width lies behind its last letter: aligned text ends with its letter.
    double Behind(std::string_view text, const TypeStyle& style);
    /// How far the text's ink reaches below the base line, drawing units.
    double Depth(std::string_view text, const TypeStyle& style);

private:
    /// Characters that go into one run.
    struct Segment {
        const OutlineFace* face = nullptr; ///< null: strokes
        const StrokeFont* strokes = nullptr;
        bool complex = false, rightToLeft = false;
        bool square = false; ///< outlines in place of a big font, see `SquareIn`
        bool open = false;
        double start = 0;             ///< drawing units from the pen
        std::size_t from = 0, to = 0; ///< bytes of the text
    };
    struct Job {
        std::string_view text;
        const TypeStyle& style;
        Vec2 pen;
        bool shows = false; ///< false: only measured
    };
    double Run(const Job& job);
    double RunBothWays(const Job& job);
    std::vector<BidiRun> PartsOf(const Job& job, const BidiRun& run);
    double RunPart(const Job& job, const BidiRun& part, double x);
    double EndSegment(const Job& job);
    double EndOutlines(const Job& job);
    double EndStrokes(const Job& job);
    void AddStroke(const Job& job, const GlyphSource& source, std::size_t from);
    void AddPart(const Job& job, const FontFace& face, const Matrix2& scale);
    void AddRules(const Job& job, double width);

    FontLibrary& m_fonts;
    LaidParts& m_parts;
    Segment m_segment;
    std::vector<ShapedGlyph> m_glyphs;
    double m_advance = 0; ///< of the open segment, em
};

} // namespace sm::render
