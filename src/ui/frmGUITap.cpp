// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmGUITap.h"

#include "plugin/mdlAcadHelper.h"
#include "settings/StampChoices.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"
#include "ui/settings/SettingsAction.h"
#include "ui/settings/SettingsTable.h"

#include <utility>

namespace sm {
namespace {

constexpr const char* kMakersWebSite = "https://www.tarnwick.example/";
constexpr const Setting& kRemindAgain = SettingNamed("BlockAttribRemindAgain");

constexpr const char* kPunctuationReminder =
    "To properly transfer block attributes to PDF file properties, the block names and attribute\r\n"
    "tag strings must only contain letters and numbers. All punctuation characters will be \r\n"
    "converted to the '-' character and trailing punctuation will be removed.\r\n"
    "\r\n"
    "Would you like to be reminded of this in the future?";

/// The position of a name is its number.
std::vector<std::string> Names(std::span<const NamedNumber> numbers)
{
    std::vector<std::string> names;
    for (const NamedNumber& one : numbers)
        names.emplace_back(one.name);
    return names;
}

} // namespace

frmGUITap::frmGUITap(FormSession& session)
    : Form(session, SettingsTable()), m_pageSetup(*this, PageSetupKind::SettingsDialog), m_stamp(*this, [this] {
          Action = kActionPickStampPoint;
          Hide();
      })
{
    BindButtons();
    On(Name(), FormEvent::Load, [this] { OnLoad(); });
    On(Name(), FormEvent::Activate, [this] {
        if (const auto once = std::exchange(OnceShown, nullptr))
            once();
    });
    On("chkTransferAttributes", FormEvent::Click, [this] { RemindOfPunctuation(); });
    On("chkPageSetup", FormEvent::Click, [this] { SwitchPageSetup(); });
    On("imgLogo", FormEvent::Click, [this] { Session().context.surroundings.desktop.OpenDocument(kMakersWebSite); });
}

void frmGUITap::BindButtons()
{
    ClosesWith("btnOK", kActionOk);
    ClosesWith("btnCancel", kActionCancel);
    ClosesWith("btnPDF", kActionCreatePdf);
    ClosesWith("btnWindowPoints", kActionPickPlotWindow);
    On("btnHelp", FormEvent::Click, [this] { Session().ShowHelp(kHelpContents); });
}

void frmGUITap::ClosesWith(const char* button, std::int32_t action)
{
    On(button, FormEvent::Click, [this, action] {
        Action = action;
        Hide();
    });
}

void frmGUITap::OnLoad()
{
    SetItems("cmbStampFont", {kStampFonts.begin(), kStampFonts.end()});
    SetItems("cmbStampSize", {kStampSizes.begin(), kStampSizes.end()});
    SetItems("cmbStampJustify", Names(kStampJustifications));
    SetCaption(Name(), kProductTitle);
    Surroundings& surroundings = Session().context.surroundings;
    Session().helpFile = JoinPath(surroundings.locale, surroundings.component.Folder(), "acadsmpdf.hlp");
    ControlPlace logo = Control("imgLogo").place;
    logo.top = (Control("picTarnwick").place.height - logo.height) / 2;
    SetPlace("imgLogo", logo);
}

void frmGUITap::RemindOfPunctuation()
{
    Surroundings& surroundings = Session().context.surroundings;
    if (!IsTicked("chkTransferAttributes") || ReadTextSetting(surroundings, kRemindAgain) != "1")
        return;
    const MessageAnswer answer =
        Session().ShowMessage(kPunctuationReminder, MessageButtons::YesNo, MessageIcon::Question, kHelpBlockAttributes);
    if (answer == MessageAnswer::No)
        WriteSetting(surroundings, kRemindAgain.name, std::string("0"));
}

void frmGUITap::SwitchPageSetup()
{
    if (IsTicked("chkPageSetup"))
        return PDFPageSetupOn();
    if (OnPageSetupSwitchedOff)
        OnPageSetupSwitchedOff();
    PDFPageSetupOff();
}

} // namespace sm
