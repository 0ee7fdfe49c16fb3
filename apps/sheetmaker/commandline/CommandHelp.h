// SPDX-License-Identifier: GPL-3.0-or-later
// What the help says beyond the list of options: the examples.
#pragma once

namespace sm::app {

inline constexpr const char* kProgramSummary = "Turns the sheets of CAD drawings into PDF files.";

inline constexpr const char* kProgramFooter = R"(Examples:
  sheetmaker convert plan.dxf                   every sheet that holds something into plan.pdf
  sheetmaker layouts plan.dxf                   what sheets there are
  sheetmaker convert *.dxf -o pdf/ --jobs 4     many drawings, four at a time
  sheetmaker publish -o set.pdf *.dxf           the sheets of many drawings in one PDF
  sheetmaker stamp plan.dxf --text 2 --at 10,10 a stamp on every sheet from now on
  sheetmaker settings plan.dxf                  all of this in a window
  sheetmaker doctor                             what is installed, what is missing

"sheetmaker help COMMAND" explains a command, "sheetmaker help SETTING" a setting.

Exit codes: 0 all done; 1 some failed; 2 wrong usage; 3 a needed tool is missing;
4 converted, but the input was damaged and content was lost (--strict makes that 1).)";

inline constexpr const char* kConvertFooter = R"(Examples:
  sheetmaker convert plan.dxf                              plan.pdf beside the drawing
  sheetmaker convert plan.dxf -o set.pdf --layouts all     every sheet into set.pdf
  sheetmaker convert plan.dxf --layout "Ground floor"      one sheet
  sheetmaker convert site.dxf --layouts model --page-setup global
  sheetmaker convert plan.dxf --layout "A-1*" --layout 7..9 some sheets, by pattern and by number
  sheetmaker convert plan.dxf --paper A4 --fit --mono      as a small black and white check print
  sheetmaker convert *.dxf -o pdf/ --jobs 4 --report json  a folder of PDFs, a report on stdout
  sheetmaker convert --list night.txt --update --report jsonl --log-dir logs >> done.jsonl
  sheetmaker convert - -o - < plan.dxf > plan.pdf          between other programs
  sheetmaker convert plan.dxf --attachments refuse-outside no file from outside the drawing's folder goes into the PDF

A DWG older than R9 is read through a converter that "sheetmaker doctor" shows; --dwg-converter takes another one,
then for every DWG, in which {in} and {out} stand for the files:
  sheetmaker convert plan.dwg --dwg-converter "my-converter --to dxf {in} {out}"

"auto" takes every paper layout that holds something, and the model when none does.)";

inline constexpr const char* kLayoutsFooter = R"(Examples:
  sheetmaker layouts plan.dxf
  sheetmaker layouts plan.dxf --json | jq '.[].name')";

inline constexpr const char* kSettingsFooter = R"(Examples:
  sheetmaker settings plan.dxf                       settings, page setup, stamp, attachments, signature fields
  sheetmaker settings plan.dxf --layout "Ground floor"

"OK" and "Create PDF" keep what was entered: settings for the user, the rest in the drawing. The former drawing
stays as plan.dxf.bak. "Cancel" leaves everything as it was. A DWG is never written; its entries stand in
plan.dwg.sheetmaker beside it.)";

inline constexpr const char* kPageSetupFooter = R"(Examples:
  sheetmaker page-setup               the global page setup, for "convert --page-setup global"
  sheetmaker page-setup plan.dxf      the drawing's own PDF page setup, for "convert --page-setup custom"
  sheetmaker page-setup plan.dxf --show
  sheetmaker page-setup plan.dxf --set CanonicalMediaName=A3 --set StyleSheet=monochrome.ctb)";

inline constexpr const char* kGetFooter = R"(Examples:
  sheetmaker get JobOptionsFile)";

inline constexpr const char* kSetFooter = R"(Examples:
  sheetmaker set OpenInViewer 0
  sheetmaker set JobOptionsFile "Print [1200 dpi]"
  sheetmaker set Stamp1 "FOR REVIEW"
  sheetmaker set AttachmentLimit 500                       files of up to 500 MiB may be attached
  sheetmaker set DwgConverter "my-converter --to dxf {in} {out}")";

inline constexpr const char* kListFooter = R"(Examples:
  sheetmaker list              every setting; "*" marks those that were changed
  sheetmaker list Stamp        those whose names contain "stamp")";

inline constexpr const char* kLogFooter = R"(Examples:
  sheetmaker log
  sheetmaker log --list             the last conversion's log, and those of --log and --log-dir
  sheetmaker log plan               that of plan.dxf, or by its number in the list
  sheetmaker log | grep ERROR)";

inline constexpr const char* kReportFooter = R"(Examples:
  sheetmaker report merge task-*.jsonl -o night.json            one report of many tasks
  sheetmaker report merge monday.jsonl tuesday.jsonl --report jsonl
  sheetmaker report merge task-*.jsonl --list drawings.txt      and is there one for every drawing?

What a later report says of a drawing takes the place of what an earlier one said. The last line of a task that was
killed, where it breaks off, is told and left out; a file that is no report is refused with the place, and nothing is
written. The exit code is the one that a single run over all drawings would have had: 3 when a tool was missing, 130
when one was interrupted, else 1 when a drawing failed, else 4 when one lost content, else 0.)";

inline constexpr const char* kHelpFooter = R"(Examples:
  sheetmaker help convert
  sheetmaker help PaperWidth)";

inline constexpr const char* kDoctorFooter = R"(Examples:
  sheetmaker doctor)";

} // namespace sm::app
