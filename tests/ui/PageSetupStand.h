// SPDX-License-Identifier: GPL-3.0-or-later
// The page setup controls of both forms, over a record that a test sets.
#pragma once

#include "plotting/PaperTable.h"
#include "ui/UiStand.h"
#include "ui/frmGUITap.h"
#include "ui/frmPageSetup.h"
#include "ui/mdlGUITap.h"

namespace sm {

class PageSetupStand : public UiStand {
protected:
    PageSetupStand()
    {
        LoadPaperTable(papers);
        gui.Load();
        dialog.Load();
    }
    bool Fill() { return SetPageSetupTab(gui.PageSetup(), {record, papers, styles, selection}); }
    bool Save() { return SavePageSetupTab(gui.PageSetup(), layout, record, selection); }
    bool FillDialog() { return SetPageSetupTab(dialog.PageSetup(), {record, papers, styles}); }
    bool SaveDialog() { return SavePageSetupTab(dialog.PageSetup(), layout, record, selection); }

    /// What a control shows and whether it can be used: "txtPlotOffsetX '1.00' on window".
    static std::string Shown(const FormDriver& user, const std::string& name)
    {
        const FormControl& control = user.Control(name);
        std::string text = name;
        if (control.kind == ControlKind::TextBox || control.kind == ControlKind::ComboBox)
            text += " '" + user.Text(name) + "'";
        else if (control.kind == ControlKind::CheckBox || control.kind == ControlKind::OptionButton)
            text += control.value != 0 ? " ticked" : " unticked";
        else
            text += " '" + control.caption + "'";
        text += control.enabled ? " on" : " off";
        if (control.kind == ControlKind::TextBox || control.kind == ControlKind::ComboBox)
            text += " " + user.Back(name);
        return text;
    }
    Texts Shown(const Texts& names)
    {
        Texts lines;
        for (const std::string& name : names)
            lines.push_back(Shown(user, name));
        return lines;
    }

    PageSetupRecord record;
    std::vector<PaperSize> papers;
    std::vector<std::string> styles{"None", "Florida.ctb", "monochrome.ctb"};
    std::int32_t selection = 1; ///< the drawing's own page setup is in use
    LayoutSettings layout;
    frmGUITap gui{session};
    frmPageSetup dialog{session};
    FormDriver user{gui};
    FormDriver dialogUser{dialog};
};

} // namespace sm
