// SPDX-License-Identifier: GPL-3.0-or-later
// The table of plot areas and where they land, for Place_test.
#pragma once

#include "drawing/Layouts.h"
#include "plotter/Placement.h"

#include <vector>

namespace sm::plotter {
using drawing::PlotSettings;

inline constexpr int kCentered = 4, kStandard = 16;
inline constexpr int kDisplay = 0, kExtents = 1, kLimits = 2, kView = 3, kWindow = 4, kLayout = 5;

inline Box2 BoxOf(double x0, double y0, double x1, double y1)
{
    Box2 box;
    box.Add(Vec2{x0, y0});
    box.Add(Vec2{x1, y1});
    return box;
}

/// A4 upright, margins 5 left, 10 bottom, 15 right, 20 top: the printable area is 190 x 267.
inline PlotSettings A4(int plotType, int flags)
{
    PlotSettings s;
    s.paperWidth = 210;
    s.paperHeight = 297;
    s.marginLeft = 5;
    s.marginBottom = 10;
    s.marginRight = 15;
    s.marginTop = 20;
    s.paperUnits = 1;
    s.plotType = plotType;
    s.flags = flags;
    return s;
}

struct PlotRow {
    const char* name;
    PlotSettings settings;
    bool model;
    Box2 extents;
    double scale;  ///< numerator / denominator in force
    Vec2 from, to; ///< a point of the drawing and where it lands, mm
    Vec2 xAxis;    ///< a step of 1 along the drawing's x on the sheet, mm
    Box2 clip;
};

inline PlotSettings With(PlotSettings s, auto change)
{
    change(s);
    return s;
}

inline const Box2 kPrintable = BoxOf(5, 10, 195, 277);

inline std::vector<PlotRow> PlotRows()
{
    const Box2 ext = BoxOf(100, 200, 138, 253.4); // 38 x 53.4: five times fills the printable area
    const auto standard = [](int type, int code, int more = 0) {
        return With(A4(type, kStandard | more), [&](PlotSettings& s) { s.standardScale = code; });
    };
    return {
        {"layout at 1:1", standard(kLayout, 16), false, {}, 1, {0, 0}, {5, 10}, {1, 0}, kPrintable},
        {"layout at 1:2", standard(kLayout, 17), false, {}, 0.5, {100, 100}, {55, 60}, {0.5, 0}, kPrintable},
        {"layout to fit is 1:1", standard(kLayout, 0), false, {}, 1, {7, 8}, {12, 18}, {1, 0}, kPrintable},
        {"layout is never centred",
         standard(kLayout, 16, kCentered),
         false,
         {},
         1,
         {0, 0},
         {5, 10},
         {1, 0},
         kPrintable},
        {"layout with an origin",
         With(standard(kLayout, 16),
              [](auto& s) {
                  s.origin = {3, -4};
              }),
         false,
         {},
         1,
         {0, 0},
         {8, 6},
         {1, 0},
         kPrintable},
        {"layout in inches",
         With(standard(kLayout, 16), [](auto& s) { s.paperUnits = 0; }),
         false,
         {},
         1,
         {1, 2},
         {30.4, 60.8},
         {25.4, 0},
         kPrintable},
        {"layout turned once",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 1; }),
         false,
         {},
         1,
         {0, 0},
         {5, 277},
         {0, -1},
         kPrintable},
        {"layout turned twice",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 2; }),
         false,
         {},
         1,
         {0, 0},
         {195, 277},
         {-1, 0},
         kPrintable},
        {"layout turned three times",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 3; }),
         false,
         {},
         1,
         {0, 0},
         {195, 10},
         {0, 1},
         kPrintable},
        {"origin of a turned layout lies along the sheet's axes",
         With(standard(kLayout, 16),
              [](auto& s) {
                  s.rotation = 1;
                  s.origin = {3, 40};
              }),
         false,
         {},
         1,
         {0, 0},
         {8, 237},
         {0, -1},
         kPrintable},
        {"extents to fit", standard(kExtents, 0), false, ext, 5, {100, 200}, {5, 10}, {5, 0}, kPrintable},
        {"extents to fit, turned",
         With(standard(kExtents, 0, kCentered), [](auto& s) { s.rotation = 3; }),
         false,
         BoxOf(0, 0, 534, 190),
         0.5,
         {0, 0},
         {147.5, 10},
         {0, 0.5},
         kPrintable},
        {"extents 1:1 centred",
         standard(kExtents, 16, kCentered),
         true,
         ext,
         1,
         {119, 226.7},
         {100, 143.5},
         {1, 0},
         kPrintable},
        {"extents with an origin",
         With(standard(kExtents, 16),
              [](auto& s) {
                  s.origin = {10, 20};
              }),
         true,
         ext,
         1,
         {100, 200},
         {15, 30},
         {1, 0},
         kPrintable},
        {"extents without anything", standard(kExtents, 0), true, {}, 1, {0, 0}, {5, 10}, {1, 0}, kPrintable},
        {"extents without anything, centred",
         With(standard(kExtents, 0, kCentered),
              [](auto& s) {
                  s.origin = {3, 4};
              }),
         true,
         {},
         1,
         {0, 0},
         {5, 10},
         {1, 0},
         kPrintable},
        {"extents without anything, with an origin",
         With(standard(kExtents, 0),
              [](auto& s) {
                  s.origin = {3, 4};
              }),
         true,
         {},
         1,
         {0, 0},
         {8, 14},
         {1, 0},
         kPrintable},
        {"a point fits at 1:1 round its middle",
         standard(kExtents, 0),
         true,
         BoxOf(7, 7, 7, 7),
         1,
         {7, 7},
         {100, 143.5},
         {1, 0},
         kPrintable},
        {"a level line fits by its length",
         standard(kExtents, 0),
         true,
         BoxOf(0, 7, 380, 7),
         0.5,
         {190, 7},
         {100, 143.5},
         {0.5, 0},
         kPrintable},
        {"custom scale",
         With(A4(kExtents, 0),
              [](auto& s) {
                  s.scaleNumerator = 1000;
                  s.scaleDenominator = 100;
              }),
         true,
         BoxOf(0, 0, 1, 1),
         10,
         {1, 1},
         {15, 20},
         {10, 0},
         kPrintable},
        {"a stale custom scale is not used for fit",
         With(standard(kExtents, 0),
              [](auto& s) {
                  s.scaleNumerator = 1;
                  s.scaleDenominator = 77;
              }),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"unusable custom scale fits",
         With(A4(kExtents, 0), [](auto& s) { s.scaleDenominator = 0; }),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"unknown standard scale uses the custom one",
         With(standard(kExtents, 99), [](auto& s) { s.scaleNumerator = 2; }),
         false,
         ext,
         2,
         {100, 200},
         {5, 10},
         {2, 0},
         kPrintable},
        {"window clips",
         With(standard(kWindow, 16), [](auto& s) { s.window = BoxOf(10, 20, 60, 50); }),
         true,
         {},
         1,
         {10, 20},
         {5, 10},
         {1, 0},
         BoxOf(5, 10, 55, 40)},
        {"inverted window",
         With(standard(kWindow, 17, kCentered),
              [](auto& s) {
                  s.window = {{60, 50}, {10, 20}};
              }),
         true,
         {},
         0.5,
         {35, 35},
         {100, 143.5},
         {0.5, 0},
         BoxOf(87.5, 136, 112.5, 151)},
        {"turned window clips on the sheet",
         With(standard(kWindow, 16),
              [](auto& s) {
                  s.window = BoxOf(0, 0, 50, 30);
                  s.rotation = 1;
              }),
         true,
         {},
         1,
         {50, 30},
         {35, 227},
         {0, -1},
         BoxOf(5, 227, 35, 277)},
        {"window larger than the sheet",
         With(standard(kWindow, 16), [](auto& s) { s.window = BoxOf(0, 0, 999, 999); }),
         false,
         {},
         1,
         {0, 0},
         {5, 10},
         {1, 0},
         kPrintable},
        {"limits of the model", standard(kLimits, 16), true, {}, 1, {-1, -2}, {5, 10}, {1, 0}, BoxOf(5, 10, 18, 21)},
        {"model display", standard(kDisplay, 0), true, {}, 9.5, {40, 48.5}, {5, 10}, {9.5, 0}, BoxOf(5, 10, 195, 38.5)},
        {"named view",
         With(standard(kView, 26), [](auto& s) { s.viewName = "DETAIL"; }),
         true,
         {},
         0.01,
         {1000, 2000},
         {10, 15},
         {0.01, 0},
         BoxOf(5, 10, 15, 20)},
        {"layout type on the model tab plots the limits",
         standard(kLayout, 16),
         true,
         {},
         1,
         {-1, -2},
         {5, 10},
         {1, 0},
         BoxOf(5, 10, 18, 21)},
        {"paper display without a sheet view",
         standard(kDisplay, 0),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"margins that leave nothing count as none",
         With(standard(kLayout, 16), [](auto& s) { s.marginLeft = 200; }),
         false,
         {},
         1,
         {0, 0},
         {0, 0},
         {1, 0},
         BoxOf(0, 0, 210, 297)},
        {"pixels count as millimetres",
         With(standard(kLayout, 16), [](auto& s) { s.paperUnits = 2; }),
         false,
         {},
         1,
         {1, 1},
         {6, 11},
         {1, 0},
         kPrintable},
    };
}

} // namespace sm::plotter
