// SPDX-License-Identifier: GPL-3.0-or-later
// Small DXF files written inline, and what the front end makes of them.
#pragma once

#include "FakeTextEngine.h"
#include "RecordingCanvas.h"

#include "drawing/Drawing.h"
#include "render/FrontEnd.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace sm::render {

/// Tags on one line, "0 LINE | 8 0 | 10 1.5", as DXF text. A '~' stands for '|' in a value.
inline std::string Tags(const std::string& line)
{
    std::string result;
    std::istringstream stream(line);
    std::string tag;
    while (std::getline(stream, tag, '|')) {
        const std::size_t code = tag.find_first_not_of(' ');
        if (code == std::string::npos) {
            continue;
        }
        const std::size_t space = tag.find(' ', code);
        const std::size_t end = tag.find_last_not_of(' ');
        std::string value = space == std::string::npos || space > end ? "" : tag.substr(space + 1, end - space);
        std::replace(value.begin(), value.end(), '~', '|');
        result += tag.substr(code, space - code) + "\n" + value + "\n";
    }
    return result;
}

/// The parts of a small drawing, each as tags on lines.
struct SmallDrawing {
    std::string header, layers, linetypes, blocks, entities, objects, styles;
    std::string raw; ///< entities as DXF text

    [[nodiscard]] std::unique_ptr<drawing::Drawing> Open() const
    {
        std::string text = Tags("0 SECTION | 2 HEADER | 9 $ACADVER | 1 AC1015 |" + header + "| 0 ENDSEC");
        text += Tags("0 SECTION | 2 TABLES");
        if (!styles.empty()) {
            text += Tags("0 TABLE | 2 STYLE |" + styles + "| 0 ENDTAB");
        }
        text += Tags("0 TABLE | 2 LTYPE |" + linetypes + "| 0 ENDTAB");
        text += Tags("0 TABLE | 2 LAYER | 0 LAYER | 2 0 | 70 0 | 62 7 | 6 Continuous |" + layers + "| 0 ENDTAB");
        text += Tags("0 ENDSEC | 0 SECTION | 2 BLOCKS |" + blocks + "| 0 ENDSEC");
        text += Tags("0 SECTION | 2 ENTITIES |" + entities) + raw + Tags("0 ENDSEC");
        text += Tags("0 SECTION | 2 OBJECTS |" + objects + "| 0 ENDSEC | 0 EOF");
        return drawing::Drawing::FromBytes(text, "small.dxf");
    }
};

/// How a small drawing is looked at: 100 x 100 mm of paper, one drawing unit one millimetre.
struct SmallScene {
    Matrix3 view;
    Matrix2 toPaper;
    Box2 clip{{0, 0}, {100, 100}};
    bool paper = false;
    bool lineweights = true;
    double lineweightScale = 1;
    bool viewportsFirst = true;
    bool viewportBorders = false;
    bool marks = false;
    const PlotStyleTable* plotStyles = nullptr;
    bool everyLayer = false;
    std::uint64_t expansion = 0;
    bool hidesLines = false;
};

struct Drawn {
    std::vector<std::string> lines;
    std::string counts; ///< "drawn 1 hidden 2", outcomes that occur
    std::vector<std::string> notDrawn;
    std::vector<std::string> remarks;
};

inline std::string CountsOf(const RenderReport& report)
{
    std::string text;
    const auto add = [&](const char* name, Outcome outcome) {
        if (report.Count(outcome) > 0) {
            text += (text.empty() ? "" : " ") + std::string(name) + " " + std::to_string(report.Count(outcome));
        }
    };
    add("drawn", Outcome::Drawn);
    add("not drawn", Outcome::NotDrawn);
    add("off page", Outcome::OffPage);
    add("hidden", Outcome::Hidden);
    add("not reached", Outcome::NotReached);
    return text;
}

inline std::uint32_t SpaceOf(const drawing::Drawing& drawing, bool paper)
{
    for (const drawing::Layout& layout : drawing.Layouts()) {
        if (layout.isModel != paper) {
            return layout.block;
        }
    }
    return drawing::kNoBlock;
}

inline Drawn Render(const SmallDrawing& small, const SmallScene& look = {})
{
    const auto drawing = small.Open();
    Scene scene{*drawing, SpaceOf(*drawing, look.paper), look.view, look.toPaper, look.clip};
    scene.paperSpace = look.paper;
    scene.lineweights = look.lineweights;
    scene.lineweightScale = look.lineweightScale;
    scene.viewportsFirst = look.viewportsFirst;
    scene.viewportBorders = look.viewportBorders;
    scene.plotStyles = look.plotStyles;
    scene.everyLayer = look.everyLayer;
    scene.expansion = look.expansion;
    scene.hidesLines = look.hidesLines;
    RecordingCanvas canvas(look.marks);
    FakeTextEngine text;
    RenderReport report(*drawing);
    RenderScene(scene, canvas, text, report);
    Drawn drawn{canvas.lines, CountsOf(report), {}, {}};
    for (const auto& [kind, layer, count] : report.NotDrawn()) {
        drawn.notDrawn.push_back(kind + " " + layer + " " + std::to_string(count));
    }
    for (const auto& [remark, count] : report.Remarks()) {
        drawn.remarks.push_back(remark + " " + std::to_string(count));
    }
    return drawn;
}

/// What is drawn between the clip of the page and its pop.
inline std::vector<std::string> LinesOf(const SmallDrawing& small, const SmallScene& look = {})
{
    std::vector<std::string> lines = Render(small, look).lines;
    if (lines.size() < 2 || lines.front() != "clip box 0 0 100 100" || lines.back() != "pop") {
        return {"the page's clip is missing"};
    }
    return {lines.begin() + 1, lines.end() - 1};
}

using Lines = std::vector<std::string>;

} // namespace sm::render
