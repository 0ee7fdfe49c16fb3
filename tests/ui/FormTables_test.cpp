// SPDX-License-Identifier: GPL-3.0-or-later
// Every control of the other eight forms, complete.
#include "ui/FormListing.h"

#include "ui/UiStand.h"

namespace sm {
namespace {

class FormTables : public UiStand {
protected:
    NineForms forms{session};
};

TEST_F(FormTables, OfTheForm_PageSetup)
{
    EXPECT_EQ(Described(forms.pageSetup),
              (Texts{
                  "form frmPageSetup 'Page Setup'",
                  "label Label1 'Units:' tag AcadPageSetup",
                  "combo cmbPaperUnits tag AcadPageSetup",
                  "frame fmePaperSize 'Paper Size and Orientation'",
                  "label lblPaperSize 'Paper Size:' in fmePaperSize tag AcadPageSetup",
                  "combo cmbPaperSize in fmePaperSize tag AcadPageSetup",
                  "list lstPaperSize in fmePaperSize columns Title, Width, Hieght hidden",
                  "option optPortrait 'Portrait' in fmePaperSize tag AcadPageSetup",
                  "option optLandscape 'Landscape' in fmePaperSize tag AcadPageSetup",
                  "frame fmePlotArea 'Plot Area'",
                  "option optDisplay 'Display' in fmePlotArea tag AcadPageSetup",
                  "option optExtents 'Extents' in fmePlotArea tag AcadPageSetup",
                  "option optLayout 'Layout/ Limits' in fmePlotArea tag AcadPageSetup",
                  "option optView 'View' in fmePlotArea tag AcadPageSetup",
                  "combo cmbView in fmePlotArea tag AcadPageSetup",
                  "text txtView in fmePlotArea tag AcadPageSetup hidden",
                  "option optWindow 'Window' in fmePlotArea tag AcadPageSetup",
                  "frame fmePlotStyle 'Plot Style Table (Pen Assignments)'",
                  "label lblPlotStyleName 'Name:' in fmePlotStyle tag AcadPageSetup",
                  "combo cmbPlotStyle in fmePlotStyle tag AcadPageSetup",
                  "text txtPlotStyle in fmePlotStyle tag AcadPageSetup hidden",
                  "frame fmePlotScale 'Plot Scale'",
                  "label lblScale 'Scale:' in fmePlotScale tag AcadPageSetup",
                  "combo cmbScale in fmePlotScale tag AcadPageSetup",
                  "label lblCustom 'Custom:' in fmePlotScale tag AcadPageSetup",
                  "text txtScaleNumer in fmePlotScale tag AcadPageSetup",
                  "label lblScaleUnits 'Inches' in fmePlotScale tag AcadPageSetup",
                  "text txtScaleDenom in fmePlotScale tag AcadPageSetup",
                  "label lblDrawingUnits 'Drawing Units' in fmePlotScale tag AcadPageSetup",
                  "check chkScaleLine 'Scale Lineweights' in fmePlotScale tag AcadPageSetup",
                  "frame fmePlotOffset 'Plot Offset'",
                  "check chkCenterThePlot 'Center The Plot' in fmePlotOffset tag AcadPageSetup",
                  "label lblPlotOffsetX 'X:' in fmePlotOffset tag AcadPageSetup",
                  "text txtPlotOffsetX in fmePlotOffset tag AcadPageSetup",
                  "label lblXUnits 'Inches' in fmePlotOffset tag AcadPageSetup",
                  "label lblPlotOffsetY 'Y:' in fmePlotOffset tag AcadPageSetup",
                  "text txtPlotOffsetY in fmePlotOffset tag AcadPageSetup",
                  "label lblYUnits 'Inches' in fmePlotOffset tag AcadPageSetup",
                  "frame fmePlotOptions 'Plot Options'",
                  "check chkPlotStyles 'Plot With Plot Styles' in fmePlotOptions tag AcadPageSetup",
                  "check chkPlotLineWeights 'Plot Object Lineweights' in fmePlotOptions tag AcadPageSetup",
                  "check chkPaperSpace 'Plot Paperspace Last' in fmePlotOptions tag AcadPageSetup",
                  "check chkPlotHidden 'Hide Objects' in fmePlotOptions tag AcadPageSetup",
                  "button btnOK 'OK' default",
                  "button btnCancel 'Cancel' cancel",
                  "button btnHelp 'Help'",
              }));
}

TEST_F(FormTables, OfTheForm_Attach)
{
    EXPECT_EQ(Described(forms.attach), (Texts{
                                           "form frmAttach 'File Attachment'",
                                           "frame Frame1 'Step 1: Select File'",
                                           "label lblAttachFile 'File Name:' in Frame1",
                                           "text txtAttachFile in Frame1",
                                           "button btnAttachBrowse 'Browse...' in Frame1",
                                           "frame Frame2 'Step 2: Select File Icon Location'",
                                           "label lblAttachLayout 'Layout Tab:' in Frame2",
                                           "combo cmbAttachLayout in Frame2",
                                           "label lblAttachX 'X:' in Frame2",
                                           "text txtAttachX in Frame2",
                                           "label lblAttachY 'Y:' in Frame2",
                                           "text txtAttachY in Frame2",
                                           "button btnAttachPoints 'Get Point >' in Frame2",
                                           "button btnOK 'OK' default",
                                           "button btnCancel 'Cancel' cancel",
                                           "button btnHelp 'Help'",
                                       }));
}

TEST_F(FormTables, OfTheForm_DigSig)
{
    EXPECT_EQ(Described(forms.digSig), (Texts{
                                           "form frmDigSig 'Digital Signature Field'",
                                           "frame Frame1 'Step 1: Select Signature Role'",
                                           "label lblDigSigName 'Title:' in Frame1",
                                           "text txtDigSigName in Frame1",
                                           "label lblDigSigDesc 'Description:' in Frame1",
                                           "text txtDigSigDesc in Frame1",
                                           "frame Frame2 'Step 2: Select Signature Location'",
                                           "label lblDigSigLayout 'Layout Tab:' in Frame2",
                                           "combo cmbDigSigLayout in Frame2",
                                           "label lblDigSigRectangle 'Signature Rectangle:' in Frame2",
                                           "label lblDigSigX1 'X1:' in Frame2",
                                           "text txtDigSigX1 in Frame2",
                                           "label lblDigSigY1 'Y1:' in Frame2",
                                           "text txtDigSigY1 in Frame2",
                                           "label lblDigSigX2 'X2:' in Frame2",
                                           "text txtDigSigX2 in Frame2",
                                           "label lblDigSigY2 'Y2:' in Frame2",
                                           "text txtDigSigY2 in Frame2",
                                           "button btnDigSigPoints 'Get Rect >' in Frame2",
                                           "button btnOK 'OK' default",
                                           "button btnCancel 'Cancel' cancel",
                                           "button btnHelp 'Help'",
                                       }));
}

TEST_F(FormTables, OfTheForm_CustomStamp)
{
    EXPECT_EQ(Described(forms.customStamp), (Texts{
                                                "form frmCustomStamp 'Customize Text Stamps'",
                                                "text txtCustomStamp",
                                                "label lblInsert 'Insert:'",
                                                "toolbar Toolbar2",
                                                "toolbutton btnUser 'User' in Toolbar2",
                                                "toolbutton btnFile 'File' in Toolbar2",
                                                "toolbutton btnPath 'Path' in Toolbar2",
                                                "toolbutton btnTime 'Time' in Toolbar2",
                                                "toolbutton btnDate 'Date' in Toolbar2",
                                                "toolbutton btnDay 'Day' in Toolbar2",
                                                "toolbutton btnMonth 'Month' in Toolbar2",
                                                "toolbutton btnYear 'Year' in Toolbar2",
                                                "button btnOk 'OK' default",
                                                "button btnCancel 'Cancel' cancel",
                                            }));
}

TEST_F(FormTables, OfTheForm_PlotStyle)
{
    EXPECT_EQ(Described(forms.plotStyle),
              (Texts{
                  "form frmPlotStyle 'Tarnwick Sheetmaker PDF'",
                  "image imgWarning picture warning",
                  "label Label2 'The selected plot style could not be found.  Please choose one from the list below:'",
                  "label Label1 'Plot Style Table:'",
                  "combo cmbPlotStyle",
                  "button btnOK 'OK' default",
                  "button btnCancel 'Cancel' cancel",
              }));
}

TEST_F(FormTables, OfTheForm_JobOpts)
{
    EXPECT_EQ(Described(forms.jobOpts), (Texts{
                                            "form frmJobOpts 'Tarnwick Sheetmaker PDF'",
                                            "image imgWarning picture warning",
                                            "label Label2 'The Raster Image Quality Settings could not be located.  "
                                            "Please choose one from the list below:'",
                                            "label Label1 'Resolution:'",
                                            "combo cmbJobOpts",
                                            "button btnOK 'OK' default",
                                            "button btnCancel 'Cancel' cancel",
                                        }));
}

TEST_F(FormTables, OfTheForm_PageSize)
{
    EXPECT_EQ(Described(forms.pageSize), (Texts{
                                             "form frmPageSize 'Tarnwick Sheetmaker PDF'",
                                             "image imgWarning picture warning",
                                             "label Label2 'The correct paper size was not available for the PDF file. "
                                             " Please choose one from the list below:'",
                                             "label Label1 'Paper Size:'",
                                             "combo cmbPageSize",
                                             "button btnOK 'OK' default",
                                             "button btnCancel 'Cancel' cancel",
                                         }));
}

TEST_F(FormTables, OfTheForm_Progress)
{
    EXPECT_EQ(Described(forms.progress), (Texts{
                                             "form frmProgress 'Tarnwick Sheetmaker PDF'",
                                             "label lblStatus 'Status: Scanning for Hyperlinks and File Attributes'",
                                             "progress prgStatus",
                                             "timer tmeStatus",
                                         }));
}

} // namespace
} // namespace sm
