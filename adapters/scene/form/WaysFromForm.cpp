// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/WaysFromForm.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <utility>

namespace sm::scene {
namespace {

/// Two states of one control of which the user entered neither more nor less; tabs are turned without entering
/// anything.
bool HoldsTheSame(const FormControl& a, const FormControl& b)
{
    return a.kind == ControlKind::TabStrip || (a.text == b.text && a.value == b.value && a.selection == b.selection &&
                                               a.items == b.items && a.rows == b.rows && a.backColor == b.backColor);
}

} // namespace

bool IsDrawingFile(const std::string& path)
{
    std::string ending = base::ToText(base::ToPath(path).extension());
    for (char& letter : ending)
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    return ending == ".dxf" || ending == ".dwg";
}

std::optional<std::string> AskForDrawing(IDesktop& desktop)
{
    return desktop.AskOpenFile({"Open Drawing", {}, "Drawings", "dxf;dwg", true, 0});
}

WaysFromForm::WaysFromForm(const IForm& form, beside::IDrawings& drawings, IDesktop& desktop,
                           std::function<void()> close)
    : m_form(form), m_drawings(drawings), m_desktop(desktop), m_close(std::move(close)), m_atFirst(form.Controls())
{
}

bool WaysFromForm::MayDropEntries(const std::string& what) const
{
    const auto& now = m_form.Controls();
    if (std::equal(now.begin(), now.end(), m_atFirst.begin(), m_atFirst.end(), HoldsTheSame))
        return true;
    const std::string text = "What was entered here and not confirmed yet is dropped.\r\n" + what;
    return m_desktop.ShowMessage(
               {text, now.front().caption, MessageButtons::OkCancel, MessageIcon::Exclamation, {}, 0}) ==
           MessageAnswer::Ok;
}

void WaysFromForm::EditMarks()
{
    if (!m_isUp || !MayDropEntries("Edit the marks that are stored?"))
        return;
    m_drawings.EditMarksNext();
    m_close();
}

// While the user is asked, the form may go.
void WaysFromForm::Open(const std::optional<std::string>& path)
{
    if (!m_isUp)
        return;
    const auto chosen = path ? path : AskForDrawing(m_desktop);
    if (!chosen || !m_isUp || !MayDropEntries("Open\r\n" + *chosen + "?"))
        return;
    m_drawings.OpenNext(*chosen);
    m_close();
}

} // namespace sm::scene
