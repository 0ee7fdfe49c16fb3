// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog with its row dialogs, over a bundle that a test sets.
#pragma once

#include "ui/UiStand.h"
#include "ui/frmAttach.h"
#include "ui/frmDigSig.h"
#include "ui/frmGUITap.h"
#include "ui/mdlGUITap.h"

namespace sm {

class SettingsForms : public UiStand {
protected:
    SettingsForms()
    {
        keg.LoginName = "JS";
        keg.Stamps[0] = "(NONE)";
        for (std::size_t i = 1; i < keg.Stamps.size(); ++i)
            keg.Stamps[i] = "Text " + std::to_string(i);
        keg.Layouts.emplace_back();
        Entry().DrawingFullName = "C:\\Jobs\\a1.dwg";
        gui.Load();
    }
    LayoutSettings& Entry() { return keg.Layouts.front(); }

    DataKeg keg;
    frmGUITap gui{session};
    frmAttach attach{session, gui, gui.Action};
    frmDigSig digSig{session, gui, gui.Action};
    FormDriver user{gui};
};

} // namespace sm
