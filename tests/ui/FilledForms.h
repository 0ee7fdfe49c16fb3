// SPDX-License-Identifier: GPL-3.0-or-later
// All nine forms as they are in use, for those who look at them.
#pragma once

#include "ui/FormListing.h"

namespace sm {

inline void FillForms(NineForms& forms)
{
    forms.gui.SetTicked("optAllLayouts", true);
    forms.gui.SetTicked("optQuality", true);
    forms.gui.SetTicked("chkDeletePs", true);
    forms.gui.SetTicked("chkHlinkText", true);
    forms.gui.SetItems("cmbJobOpts", {"Graphics [600 dpi]", "Proof"});
    forms.gui.SelectText("cmbJobOpts", "Graphics [600 dpi]");
    forms.gui.SetTicked("chkPageSetup", true);
    forms.gui.PDFPageSetupOn();
    for (Form* form : {static_cast<Form*>(&forms.gui), static_cast<Form*>(&forms.pageSetup)}) {
        form->SetItems("cmbPaperSize", {"ISO A0 (841.00 x 1189.00 MM)", "ANSI expand E (34.00 x 44.00 Inches)"});
        form->Select("cmbPaperSize", 1);
        form->SetTicked("optLandscape", true);
        form->SetTicked("optLayout", true);
        form->SetText("txtScaleNumer", "1.000");
        form->SetText("txtScaleDenom", "25.4");
        form->SetText("txtPlotOffsetX", "0.00");
        form->SetText("txtPlotOffsetY", "0.00");
        form->SetItems("cmbPlotStyle", {"None", "monochrome.ctb"});
        form->Select("cmbPlotStyle", 1);
    }
    forms.gui.SetItems("cmbStampText", {"(NONE)", "Plan.dwg, plotted by JS"});
    forms.gui.Select("cmbStampText", 1);
    forms.gui.TextStampOn();
    forms.gui.SelectText("cmbStampFont", "Courier-BoldOblique");
    forms.gui.SelectText("cmbStampSize", "12");
    forms.gui.SelectText("cmbStampJustify", "Left");
    forms.gui.SetBackColor("btnStampColor", {ColorRole::Explicit, 0x3030C0});
    forms.gui.SetItems("cmbStampLayout", {"All Layouts", "Ground"});
    forms.gui.Select("cmbStampLayout", 0);
    forms.gui.SetText("txtStampX", "12.50");
    forms.gui.SetText("txtStampY", "-3.00");
    forms.gui.SetRows("lstAttach",
                      {{"a.txt", {"/home/me/jobs/a.txt", "0.00", "12.50", "Ground"}},
                       {"list of doors.ods", {"/home/me/jobs/list of doors.ods", "1.00", "2.00", "Upper"}}});
    forms.gui.Select("lstAttach", 1);
    forms.gui.SetRows("lstDigSig", {{"Architect", {"Signs the sheet", "1.00", "2.00", "30.00", "12.00", "Ground"}}});
    forms.attach.SetItems("cmbAttachLayout", {"Ground"});
    forms.attach.Select("cmbAttachLayout", 0);
    forms.attach.SetText("txtAttachFile", "/home/me/jobs/a.txt");
    forms.digSig.SetText("txtDigSigName", "Architect");
    forms.customStamp.SetText("txtCustomStamp", "&[File], plotted by &[User]");
    for (Form* picker : {static_cast<Form*>(&forms.plotStyle), static_cast<Form*>(&forms.jobOpts),
                         static_cast<Form*>(&forms.pageSize)}) {
        for (const FormControl& control : picker->Controls()) {
            if (control.kind != ControlKind::ComboBox)
                continue;
            picker->SetItems(control.name, {"first", "second"});
            picker->Select(control.name, 0);
        }
    }
    forms.progress.SetProgress("prgStatus", 42);
}

} // namespace sm
