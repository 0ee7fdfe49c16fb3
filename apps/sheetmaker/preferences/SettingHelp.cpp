#include "preferences/SettingHelp.h"

#include "commandline/NamedNumbers.h"

#include <fmt/format.h>
#include <map>
#include <string_view>

namespace sm::app {
namespace {

const std::map<std::string_view, const char*> kMeanings = {
    {"PromptForFileName", "Ask where the PDF is saved; without it, it lies beside the drawing."},
    {"DeletePs", "Remove the PostScript files of the sheets once the PDF is made."},
    {"OpenInViewer", "Show the PDF once it is made."},
    {"WhatToPlot", "Which layouts become pages: the current one, or all but the model."},
    {"Optimization", "How finely lines are placed: for print, or coarser, for drafts and small files."},
    {"JobOptionsFile", "The job options that the PDF is made with: resolution and compression of pictures, colours, "
                       "layers. The files lie in the folder Settings of the share folder."},
    {"TransferTextHlinks", "Links of texts become links in the PDF."},
    {"TransferDrawingHlinks", "Links of lines, arcs and other entities of the drawing become links in the PDF."},
    {"TransferBlockHlinks", "Links of blocks and external references become links in the PDF."},
    {"TransferVPortHlinks", "Links of what viewports show become links in the PDF."},
    {"TransferAttributes", "Attributes of blocks become properties of the PDF document."},
    {"BlockAttribRemindAgain", "Remind of the block attributes that become document properties; 0 once the user asked "
                               "not to be reminded again."},
    {"NoShowAcad2000PlotterMsg", "1 once the user asked not to see the notice about plotters of release 15 again."},
    {"CanonicalMediaName", "Paper of the global page setup. Setting it sets PaperWidth and PaperHeight, too, by which "
                           "papers are told apart."},
    {"PaperWidth", "Width of the global page setup's paper, in millimetres."},
    {"PaperHeight", "Height of the global page setup's paper, in millimetres."},
    {"PlotRotation", "Quarter turns of the page against the paper, in the global page setup."},
    {"PlotType", "What the global page setup plots."},
    {"CenterPlot", "Centre the plot on the paper, in the global page setup."},
    {"PlotOriginX", "Where the plot begins, from the left of what can be printed on, in millimetres."},
    {"PlotOriginY", "Where the plot begins, from below of what can be printed on, in millimetres."},
    {"UseStandardScale", "Take the scale from StandardScale rather than from ScaleNumer and ScaleDenom."},
    {"StandardScale", "The standard scale by its number in the CAD program; 0 fits the plot to the paper."},
    {"ScaleNumer", "Units of paper that ScaleDenom drawing units take."},
    {"ScaleDenom", "Drawing units that ScaleNumer units of paper show."},
    {"PaperUnits", "The unit of the paper, for the scale."},
    {"PlotWithPlotStyles", "Plot colours and pen widths by the plot style table."},
    {"StyleSheet", "File name of the plot style table (.ctb, .stb) of the global page setup; empty: none."},
    {"ShowPlotStyles", "Show plot styles on the screen, too."},
    {"PlotHidden", "Leave out lines that bodies hide."},
    {"PlotViewportsFirst", "Plot what viewports show before what lies on the sheet itself."},
    {"PlotWithLineWeights", "Plot lines as wide as the drawing says."},
    {"ScaleLineWeights", "Line widths follow the scale of the plot."},
    {"PlotViewportBorders", "Plot the borders of viewports."},
    {"WinLowerLeftX", "Left of the window that the plot type \"window\" plots, in drawing units."},
    {"WinLowerLeftY", "Bottom of that window, in drawing units."},
    {"WinUpperRightX", "Right of that window, in drawing units."},
    {"WinUpperRightY", "Top of that window, in drawing units."},
    {"ViewToPlot", "Name of the view that the plot type \"view\" plots."},
    {"DwgConverter", "What turns DWG files of releases before R9 into DXF: a command in which {in} and {out} stand for "
                     "the files, or node, dwg2dxf, oda."},
    {"AttachmentLimit", "The largest file that may be attached, in MiB."},
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
    return kMeanings.at(setting.name);
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
