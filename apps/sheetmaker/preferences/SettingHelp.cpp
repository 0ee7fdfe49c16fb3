// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/SettingHelp.h"

#include "commandline/NamedNumbers.h"

#include <fmt/format.h>
#include <map>

namespace sm::app {
namespace {

const std::map<const Setting*, const char*> kMeanings = {
    {&SettingNamed("PromptForFileName"), "Ask where the PDF is saved; without it, it lies beside the drawing."},
    {&SettingNamed("DeletePs"), "Remove the PostScript files of the sheets once the PDF is made."},
    {&SettingNamed("OpenInViewer"), "Show the PDF once it is made."},
    {&SettingNamed("WhatToPlot"), "Which layouts become pages: the current one, or all but the model."},
    {&SettingNamed("Optimization"), "How finely lines are placed: for print, or coarser, for drafts and small files."},
    {&SettingNamed("JobOptionsFile"),
     "The job options that the PDF is made with: resolution and compression of pictures, colours, "
     "layers. The files lie in the folder Settings of the share folder."},
    {&SettingNamed("TransferTextHlinks"), "Links of texts become links in the PDF."},
    {&SettingNamed("TransferDrawingHlinks"),
     "Links of lines, arcs and other entities of the drawing become links in the PDF."},
    {&SettingNamed("TransferBlockHlinks"), "Links of blocks and external references become links in the PDF."},
    {&SettingNamed("TransferVPortHlinks"), "Links of what viewports show become links in the PDF."},
    {&SettingNamed("TransferAttributes"), "Attributes of blocks become properties of the PDF document."},
    {&SettingNamed("BlockAttribRemindAgain"),
     "Remind of the block attributes that become document properties; 0 once the user asked "
     "not to be reminded again."},
    {&SettingNamed("NoShowAcad2000PlotterMsg"),
     "1 once the user asked not to see the notice about plotters of release 15 again."},
    {&SettingNamed("CanonicalMediaName"),
     "Paper of the global page setup. Setting it sets PaperWidth and PaperHeight, too, by which "
     "papers are told apart."},
    {&SettingNamed("PaperWidth"), "Width of the global page setup's paper, in millimetres."},
    {&SettingNamed("PaperHeight"), "Height of the global page setup's paper, in millimetres."},
    {&SettingNamed("PlotRotation"), "Quarter turns of the page against the paper, in the global page setup."},
    {&SettingNamed("PlotType"), "What the global page setup plots."},
    {&SettingNamed("CenterPlot"), "Centre the plot on the paper, in the global page setup."},
    {&SettingNamed("PlotOriginX"), "Where the plot begins, from the left of what can be printed on, in millimetres."},
    {&SettingNamed("PlotOriginY"), "Where the plot begins, from below of what can be printed on, in millimetres."},
    {&SettingNamed("UseStandardScale"),
     "Take the scale from StandardScale rather than from ScaleNumer and ScaleDenom."},
    {&SettingNamed("StandardScale"),
     "The standard scale by its number in the CAD program; 0 fits the plot to the paper."},
    {&SettingNamed("ScaleNumer"), "Units of paper that ScaleDenom drawing units take."},
    {&SettingNamed("ScaleDenom"), "Drawing units that ScaleNumer units of paper show."},
    {&SettingNamed("PaperUnits"), "The unit of the paper, for the scale."},
    {&SettingNamed("PlotWithPlotStyles"), "Plot colours and pen widths by the plot style table."},
    {&SettingNamed("StyleSheet"),
     "File name of the plot style table (.ctb, .stb) of the global page setup; empty: none."},
    {&SettingNamed("ShowPlotStyles"), "Show plot styles on the screen, too."},
    {&SettingNamed("PlotHidden"), "Leave out lines that bodies hide."},
    {&SettingNamed("PlotViewportsFirst"), "Plot what viewports show before what lies on the sheet itself."},
    {&SettingNamed("PlotWithLineWeights"), "Plot lines as wide as the drawing says."},
    {&SettingNamed("ScaleLineWeights"), "Line widths follow the scale of the plot."},
    {&SettingNamed("PlotViewportBorders"), "Plot the borders of viewports."},
    {&SettingNamed("WinLowerLeftX"), "Left of the window that the plot type \"window\" plots, in drawing units."},
    {&SettingNamed("WinLowerLeftY"), "Bottom of that window, in drawing units."},
    {&SettingNamed("WinUpperRightX"), "Right of that window, in drawing units."},
    {&SettingNamed("WinUpperRightY"), "Top of that window, in drawing units."},
    {&SettingNamed("ViewToPlot"), "Name of the view that the plot type \"view\" plots."},
    {&SettingNamed("PublishWith"),
     "Who makes the PDF when the component of Windows plots in a CAD program: by itself it takes the publishing "
     "library "
     "TwSmPubLib where that is installed, else Sheetmaker PDF's own publisher. This program has its own alone."},
    {&SettingNamed("DwgConverter"),
     "What turns DWG files of releases before R9 into DXF: a command in which {in} and {out} stand for "
     "the files, or node, dwg2dxf, oda."},
    {&SettingNamed("AttachmentLimit"), "The largest file that may be attached, in MiB."},
};

bool IsStampText(const Setting& setting)
{
    return setting.use == SettingUse::StampText;
}

} // namespace

std::string SettingMeaning(const Setting& setting)
{
    if (IsStampText(setting))
        return "An entry of the list of stamp texts. &[Date], &[User] and &[Path] stand for the day, whoever converts "
               "the drawing, and the drawing's path.";
    return kMeanings.at(&setting);
}

std::string SettingValues(const Setting& setting)
{
    switch (setting.kind) {
    case SettingKind::Switch:
        return "1 or 0";
    case SettingKind::WholeNumber:
        if (!setting.choices.empty())
            return ListOf(setting.choices);
        if (setting.most == std::numeric_limits<std::int32_t>::max())
            return "a whole number from 0 up";
        return fmt::format("a whole number from {} to {}", setting.least, setting.most);
    case SettingKind::Number:
        return setting.least == -kAnyNumber ? "a number" : fmt::format("a number from {} up", setting.least);
    case SettingKind::JobOptions:
        return "the name of installed job options";
    case SettingKind::DwgConverter:
        return "a command with {in} and {out}, node, dwg2dxf or oda";
    case SettingKind::Text:
        break;
    }
    return "a text";
}

std::string SettingHelp(const Setting& setting)
{
    const std::string byDefault = DefaultText(setting);
    return fmt::format("{}\n  {}\n  Values:  {}\n  Default: {}\n", setting.name, SettingMeaning(setting),
                       SettingValues(setting), byDefault.empty() ? "none" : byDefault);
}

} // namespace sm::app
