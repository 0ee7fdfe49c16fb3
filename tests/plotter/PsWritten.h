// SPDX-License-Identifier: GPL-3.0-or-later
// What the PostScript canvas writes for a few calls.
#pragma once

#include "OwnPath.h"
#include "postscript/PsDocument.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace sm::plotter {

/// What stands in `writer`, which is finished.
inline std::string BodyOf(PsWriter& writer)
{
    writer.Finish();
    std::string text;
    writer.Body().WriteTo([&](std::string_view piece) { text += piece; });
    return text;
}

/// What is written for a page of 254 dots an inch: ten dots a millimetre.
inline std::string Written(auto draw)
{
    PsWriter writer(254, testing::TempDir());
    draw(writer);
    return BodyOf(writer);
}

/// The whole file of a page that holds what `draw` draws.
inline std::string DocumentText(const PsDocument& document, auto draw)
{
    PsWriter writer(document.unitsPerInch, testing::TempDir());
    draw(writer);
    const std::string path = OwnPath("document.ps");
    WriteDocument(document, writer, path);
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    std::filesystem::remove(path);
    return text;
}

inline std::string EmptyDocumentText(const PsDocument& document)
{
    return DocumentText(document, [](PsWriter&) {});
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
