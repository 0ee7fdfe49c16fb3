// SPDX-License-Identifier: GPL-3.0-or-later
// The examples in the help of the commands that mark drawings and publish sets.
#pragma once

namespace sm::app {

inline constexpr const char* kStampFooter = R"(Examples:
  sheetmaker stamp plan.dxf --text 2 --at 10,10              entry 2 of the stamp list on every sheet
  sheetmaker stamp plan.dxf --text "AS BUILT" --at 10,10 --color blue --layout "Ground floor"
  sheetmaker stamp plan.dxf list
  sheetmaker stamp plan.dxf change --size 36 --justify center
  sheetmaker stamp plan.dxf remove

A drawing has one stamp and keeps the number of its text only: the texts are the settings Stamp1 to Stamp15 of
whoever converts it. A new text takes the first of Stamp11 to Stamp15 that is still free.
Points are mapped without regard to centring and rotation of the plot; a sheet that plots the display has no marks.
The former drawing stays as plan.dxf.bak. A DWG is never written: what belongs to plan.dwg stands in
plan.dwg.sheetmaker beside it, and moves with it only when you move both.)";

inline constexpr const char* kAttachFooter = R"(Examples:
  sheetmaker attach plan.dxf add report.pdf --at 250,20 --layout "Ground floor"
  sheetmaker attach plan.dxf list
  sheetmaker attach plan.dxf change report.pdf --at 240,20
  sheetmaker attach plan.dxf change 1 --file report-2.pdf
  sheetmaker attach plan.dxf remove 1

The file is read when the drawing is converted. Points are mapped without regard to centring and rotation of the plot.
The former drawing stays as plan.dxf.bak. A DWG is never written: what belongs to plan.dwg stands in
plan.dwg.sheetmaker beside it, and moves with it only when you move both.)";

inline constexpr const char* kSignFooter = R"(Examples:
  sheetmaker sign plan.dxf add Approval --label "Site engineer" --rect 200,20,260,35
  sheetmaker sign plan.dxf list
  sheetmaker sign plan.dxf change Approval --rect 200,25,260,40
  sheetmaker sign plan.dxf remove Approval

Points are mapped without regard to centring and rotation of the plot. The former drawing stays as plan.dxf.bak.
A DWG is never written: what belongs to plan.dwg stands in plan.dwg.sheetmaker beside it, and moves with it only when
you move both.)";

inline constexpr const char* kPublishFooter = R"(Examples:
  sheetmaker publish -o set.pdf plan.dxf site.dxf
  sheetmaker publish -o set.pdf plan.dxf:"Ground floor" site.dxf plan.dxf:Roof
  sheetmaker publish -o set.pdf *.dxf --keep-going
  sheetmaker publish -o set.pdf *.dxf --contents             with a list of the sheets in front

A drawing without a layout gives every paper layout that holds something, and the model when none does.
A sheet that fails ends the run without a PDF; with --keep-going the others are saved and the exit code is 1,
also when reading a drawing crashes or takes too long: the set is then made again without that one.
What no option says of line quality, job options and the transfer of links and attributes is as set
("sheetmaker list").)";

} // namespace sm::app
