// SPDX-License-Identifier: GPL-3.0-or-later
// Small drawings for tests, written tag by tag (ASCII DXF, R2000).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sm::cadhost {

/// One layout with its plot settings; the names are those of the DXF reference's groups.
struct DxfLayout {
    std::string name = "Sheet 1";
    int tabOrder = 1;
    std::string configName = "\\\\office\\plotter";
    std::string mediaName = "A3";
    std::array<double, 4> margins{5, 17, 6, 18}; ///< left, bottom, right, top
    double paperWidth = 420, paperHeight = 297;
    std::array<double, 2> origin{0, 0};
    std::array<double, 4> window{0, 0, 0, 0}; ///< lower-left x and y, upper-right x and y
    double scaleNumerator = 1, scaleDenominator = 1;
    int flags = 688, paperUnits = 1, rotation = 0, plotType = 5, standardScale = 16;
    std::string styleSheet, viewName;
    std::array<double, 4> limits{1, 1, 0, 0}, extents{1, 1, 0, 0}; ///< inverted: none
    std::string entities;
};

struct DxfDrawing {
    DxfLayout model;
    std::vector<DxfLayout> sheets;
    std::string header;   ///< tags of the HEADER section
    std::string views;    ///< VIEW entries
    std::string viewport; ///< the VPORT "*Active"
    std::string blocks;   ///< BLOCK ... ENDBLK
    std::string objects;  ///< more objects
    int active = 0;       ///< 0 the model, else a sheet from 1

    DxfDrawing();
    DxfLayout& AddSheet(const std::string& name);
    [[nodiscard]] std::string Text() const;
};

/// A drawing with the sheet "Sheet 1".
DxfDrawing OneSheet();
std::string Tag(int code, const std::string& value);
std::string Tag(int code, double value);
/// Of an entity on layer 0.
std::string Plain(const char* kind, const std::string& more = {});
std::string LineTags(double x1, double y1, double x2, double y2, const std::string& more = {});
std::string ViewTags(const std::string& name, double x, double y, double width, double height,
                     const std::string& more = {});

} // namespace sm::cadhost
