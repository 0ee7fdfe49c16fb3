// SPDX-License-Identifier: GPL-3.0-or-later
// All nine forms at once, and their controls as lines of text.
#pragma once

#include "ui/Pickers.h"
#include "ui/frmAttach.h"
#include "ui/frmCustomStamp.h"
#include "ui/frmDigSig.h"
#include "ui/frmGUITap.h"
#include "ui/frmPageSetup.h"
#include "ui/frmProgress.h"

#include <string>
#include <vector>

namespace sm {

struct NineForms {
    explicit NineForms(FormSession& session)
        : gui(session), pageSetup(session), attach(session, gui, gui.Action), digSig(session, gui, gui.Action),
          customStamp(session), plotStyle(session), jobOpts(session), pageSize(session), progress(session)
    {
        for (Form* form : All())
            form->Load();
    }
    std::vector<Form*> All()
    {
        return {&gui, &pageSetup, &attach, &digSig, &customStamp, &plotStyle, &jobOpts, &pageSize, &progress};
    }
    frmGUITap gui;
    frmPageSetup pageSetup;
    frmAttach attach;
    frmDigSig digSig;
    frmCustomStamp customStamp;
    frmPlotStyle plotStyle;
    frmJobOpts jobOpts;
    frmPageSize pageSize;
    frmProgress progress;
};

inline std::string KindName(ControlKind kind)
{
    static constexpr const char* kNames[] = {
        "form", "frame",  "tabs",    "page",  "label",  "text",    "check",      "option",   "combo", "listbox",
        "list", "button", "picture", "image", "colour", "toolbar", "toolbutton", "progress", "timer"};
    return kNames[static_cast<std::size_t>(kind)];
}

/// "check chkFileName 'Prompt For File Name' in FrmGeneral", with tag, columns, text, tick and state where they are
/// out of the ordinary.
inline std::string Described(const Form& form, const FormControl& control)
{
    std::string line = KindName(control.kind) + " " + control.name;
    if (!control.caption.empty())
        line += " '" + control.caption + "'";
    if (control.parent != 0)
        line += " in " + form.Controls()[control.parent].name;
    if (!control.tag.empty())
        line += " tag " + control.tag;
    for (const ListColumn& column : control.columns)
        line += (&column == &control.columns.front() ? " columns " : ", ") + column.header;
    if (!control.picture.empty())
        line += " picture " + control.picture;
    if (!control.text.empty())
        line += " text '" + control.text + "'";
    line += control.value != 0 ? " ticked" : "";
    line += control.isDefault ? " default" : "";
    line += control.isCancel ? " cancel" : "";
    line += control.enabled ? "" : " disabled";
    line += control.visible ? "" : " hidden";
    return line;
}

inline std::vector<std::string> Described(const Form& form)
{
    std::vector<std::string> lines;
    for (const FormControl& control : form.Controls())
        lines.push_back(Described(form, control));
    return lines;
}

} // namespace sm
