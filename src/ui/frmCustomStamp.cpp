// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmCustomStamp.h"

#include <utility>

namespace sm {
namespace {

using enum ControlKind;

struct MacroButton {
    const char* name;
    const char* caption;
    const char* macro;
};

constexpr MacroButton kMacroButtons[] = {
    {"btnUser", "User", "&[User]"}, {"btnFile", "File", "&[File]"}, {"btnPath", "Path", "&[Path]"},
    {"btnTime", "Time", "&[Time]"}, {"btnDate", "Date", "&[Date]"}, {"btnDay", "Day", "&[dd]"},
    {"btnMonth", "Month", "&[mm]"}, {"btnYear", "Year", "&[yyyy]"},
};
constexpr std::int32_t kButtonWidth = 34;

FormTable StampTable()
{
    FormTable table = {
        ControlRow(FormWindow, "frmCustomStamp", "Customize Text Stamps", {0, 0, 324, 76}),
        ControlRow(TextBox, "txtCustomStamp", "", {7, 30, 310, 12}),
        ControlRow(Label, "lblInsert", "Insert:", {7, 10, 30, 8}),
        ControlRow(Toolbar, "Toolbar2", "", {41, 6, 8 * kButtonWidth, 16}),
    };
    std::int32_t left = 0;
    for (const MacroButton& button : kMacroButtons) {
        table.push_back(ControlRow(ToolButton, button.name, button.caption, {left, 1, kButtonWidth, 14}, "Toolbar2"));
        left += kButtonWidth;
    }
    table.push_back(ControlRow(CommandButton, "btnOk", "OK", {209, 55, 52, 14}).Default());
    table.push_back(ControlRow(CommandButton, "btnCancel", "Cancel", {265, 55, 52, 14}).Cancel());
    return table;
}

} // namespace

frmCustomStamp::frmCustomStamp(FormSession& session) : Form(session, StampTable())
{
    for (const MacroButton& button : kMacroButtons)
        On(button.name, FormEvent::Click, [this, &button] { Insert(button.macro); });
    On("btnOk", FormEvent::Click, [this] {
        m_confirmed = true;
        Hide();
    });
    On("btnCancel", FormEvent::Click, [this] { Hide(); });
}

void frmCustomStamp::Insert(const std::string& macro)
{
    const FormControl& box = Control("txtCustomStamp");
    std::string text = box.text;
    const std::size_t caret = box.caret;
    text.insert(caret, macro);
    SetText("txtCustomStamp", text, caret + macro.size());
}

std::optional<std::string> frmCustomStamp::Ask(const std::string& rawText)
{
    m_confirmed = false;
    SetText("txtCustomStamp", rawText, rawText.size());
    if (!ShowModal() || !m_confirmed)
        return std::nullopt;
    return Text("txtCustomStamp");
}

} // namespace sm
