// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of all targets; Target.cpp has the table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sm::fuzz {

using Inputs = std::vector<std::string>;

void FuzzDwg(std::string_view input);
Inputs DwgSeeds();
/// "whole AC1032", "built AC1015", "pages 2004".
std::string DwgKind(std::string_view input);

void FuzzDxf(std::string_view input);
Inputs DxfSeeds();
void FuzzBinaryDxf(std::string_view input);
Inputs BinaryDxfSeeds();
void FuzzRecords(std::string_view input);
Inputs RecordSeeds();
void FuzzSidecar(std::string_view input);
Inputs SidecarSeeds();
void FuzzPlotStyles(std::string_view input);
Inputs PlotStyleSeeds();
void FuzzPc3(std::string_view input);
Inputs Pc3Seeds();
void FuzzShx(std::string_view input);
Inputs ShxSeeds();
void FuzzStrokes(std::string_view input);
Inputs StrokeSeeds();
void FuzzFontMap(std::string_view input);
Inputs FontMapSeeds();
void FuzzSfnt(std::string_view input);
Inputs SfntSeeds();
void FuzzSubset(std::string_view input);
Inputs SubsetSeeds();
void FuzzPictures(std::string_view input);
Inputs PictureSeeds();
void FuzzMetafiles(std::string_view input);
Inputs MetafileSeeds();
void FuzzJobOptions(std::string_view input);
Inputs JobOptionsSeeds();
void FuzzDialect(std::string_view input);
Inputs DialectSeeds();
void FuzzSettings(std::string_view input);
Inputs SettingsSeeds();
void FuzzPaths(std::string_view input);
Inputs PathSeeds();
void FuzzHyperlinks(std::string_view input);
Inputs HyperlinkSeeds();
void FuzzRoad(std::string_view input);
Inputs RoadSeeds();

} // namespace sm::fuzz
