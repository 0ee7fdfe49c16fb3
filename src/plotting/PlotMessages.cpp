// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PlotMessages.h"

#include "plugin/mdlAcadHelper.h"

namespace sm {
namespace {

struct MessageFacts {
    const char* text;
    MessageButtons buttons;
    MessageIcon icon;
    std::int32_t helpContext;
};

MessageFacts FactsOf(PlotMessage message)
{
    switch (message) {
    case PlotMessage::DriverMissing:
        return {"The Postscript HDI driver (ps6.hdi, ps7.hdi or ps8.hdi) is required to make PDF files.  "
                "It could not be located \r\n"
                "in your current AutoCAD Drivers folder. You may need to reinstall AutoCAD or redefine your AutoCAD "
                "Drivers\r\n"
                "folder to point a directory containing one of these files.",
                MessageButtons::Ok, MessageIcon::Exclamation, 110};
    case PlotMessage::PageSetupNotInitialized:
        return {"Before converting to PDF you must initialize the Page Setup for each Model or Layout Tab to be "
                "converted. \r\n"
                "Do this using the AutoCAD /File/Page_Setup/ menu item.",
                MessageButtons::Ok, MessageIcon::Exclamation, 190};
    case PlotMessage::PlotterFolderNotSet:
        return {"There was an error setting the printer for the PDF conversion.  The Sheetmaker PDF install folder "
                "could not be located.\r\n"
                "Please reinstall the software or see trouble shooting in the Help files for more information.",
                MessageButtons::Ok, MessageIcon::Critical, 230};
    case PlotMessage::ViewNotFound:
        return {"The selected view to plot could not be found. PDF conversion was canceled.", MessageButtons::Ok,
                MessageIcon::Exclamation, 290};
    case PlotMessage::ViewNotOnLayout:
        return {"The selected plot view was not defined on the layout to be converted. PDF conversion was canceled.",
                MessageButtons::Ok, MessageIcon::Exclamation, 300};
    case PlotMessage::MediaNotFound:
        return {"The Media Name selected could not be found on the HDI Postscript printer PC3 file.\r\n"
                "Please see the Help file for more information.",
                MessageButtons::Ok, MessageIcon::Critical, 220};
    case PlotMessage::Pc3NotFound:
        return {"The PDF plotter configuration file could not be found.  Please reinstall the software to fix this "
                "problem.",
                MessageButtons::Ok, MessageIcon::Critical, 150};
    case PlotMessage::DisplayWithoutAnnotations:
        return {"Due to certain limitations, the PDF Annotations (i.e text stamps, \r\n"
                "hyperlinks, file attachments, and digital signature fields) cannot be \r\n"
                "added using the Display plot type. Please choose Layout, Extents, View or Window.\r\n"
                "\r\n"
                "Would you like to continue to make a PDF file without Annotations?",
                MessageButtons::YesNo, MessageIcon::Exclamation, 279};
    case PlotMessage::PlotterFolderNotReset:
        return {"Your plotter folder was changed during the PDF creation process and there was an error trying to "
                "reset it.\r\n"
                "It was instead changed to: ",
                MessageButtons::Ok, MessageIcon::Exclamation, 240};
    case PlotMessage::OriginalPlotterMissing:
        return {"The original plotter or PC3 file for this layout doesn't exists. You will be forced to \r\n"
                "reset your page setup manually using the AutoCAD /File/Page_Setup/ menu item.\r\n"
                "\r\n"
                "Would you like to be notified next time this occurrs?",
                MessageButtons::YesNo, MessageIcon::Exclamation, 180};
    }
    return {"", MessageButtons::Ok, MessageIcon::None, 0};
}

} // namespace

MessageAnswer ShowPlotMessage(CallContext& context, PlotMessage message, const std::string& addition)
{
    const MessageFacts facts = FactsOf(message);
    return ShowProductMessage(context, facts.text + addition, facts.buttons, facts.icon, facts.helpContext);
}

} // namespace sm
