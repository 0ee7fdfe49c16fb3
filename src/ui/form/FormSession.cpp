// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/FormSession.h"

#include "plugin/mdlAcadHelper.h"
#include "settings/mdlWinReg.h"

namespace sm {

MessageAnswer FormSession::ShowMessage(const std::string& text, MessageButtons buttons, MessageIcon icon,
                                       std::int32_t helpContext)
{
    helpFile = HelpFilePath(context.surroundings);
    return ShowProductMessage(context, text, buttons, icon, helpContext);
}

void FormSession::ShowHelp(std::int32_t helpContext)
{
    if (helpFile.empty())
        helpFile = HelpFilePath(context.surroundings);
    context.surroundings.desktop.ShowHelp(helpFile, helpContext);
}

} // namespace sm
