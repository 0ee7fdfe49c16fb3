// What the PostScript canvas writes for a few calls.
#pragma once

#include "postscript/PsDocument.h"

#include <gtest/gtest.h>

namespace sm::plotter {

/// What is written for a page of 254 dots an inch: ten dots a millimetre.
inline std::string Written(auto draw)
{
    PsWriter writer(254, testing::TempDir());
    draw(writer);
    writer.Finish();
    std::string text;
    writer.Body().WriteTo([&](std::string_view piece) { text += piece; });
    return text;
}

inline render::Path Line(double x0, double y0, double x1, double y1)
{
    render::Path path;
    path.MoveTo({x0, y0});
    path.LineTo({x1, y1});
    return path;
}

inline constexpr render::StrokeStyle kThin{0x000000, 0.25, render::LineCap::Round, render::LineJoin::Round};
inline const std::string kThinPen = "0 G\n2.5 w\n1 J\n1 j\n";

} // namespace sm::plotter
