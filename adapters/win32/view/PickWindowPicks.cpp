// SPDX-License-Identifier: GPL-3.0-or-later
// How the drawing's window waits for a point, what it says meanwhile, and its keys.
#include "scene/PickTexts.h"
#include "scene/PointText.h"
#include "view/PickWindow.h"
#include "window/ModalWait.h"
#include "windows/automation/WideText.h"

#include <commctrl.h>

namespace sm::win32 {
namespace {

bool IsDown(int key)
{
    return GetKeyState(key) < 0;
}

} // namespace

void PickWindow::ShowReady()
{
    const bool ready = m_picture != nullptr;
    m_view->SetBand(ready && m_first ? std::optional(m_picture->map.ToScene(*m_first)) : std::nullopt);
    m_isTaking = ready && m_isWaiting;
    m_view->SetPicking(m_isTaking && !m_marks->AreEdited());
    ShowSnapping();
}

void PickWindow::Come()
{
    if (IsIconic(Handle()) != FALSE || !IsUp())
        ShowWindow(Handle(), SW_SHOWNORMAL);
    SetForegroundWindow(Handle());
    SetFocus(m_view->Handle());
    m_view->Appear();
    ShowReady();
}

void PickWindow::Wait()
{
    const OthersWait othersWait(Handle());
    m_isWaiting = true;
    Come();
    if (!PassMessages(m_isWaiting, [this](const MSG& message) { return TakeKey(message); }))
        Cancel();
    m_isTaking = false;
    m_view->SetPicking(false);
    m_view->SetBand(std::nullopt);
    RememberSize();
}

std::optional<Vec2> PickWindow::Pick(const std::string& prompt, std::optional<Vec2> first)
{
    m_answer.reset();
    m_first = first;
    m_controls->Enable(kTabs, !first);
    m_controls->SetText(kPrompt, prompt);
    m_controls->SetText(kEntry, {});
    LayOut();
    Wait();
    return m_answer;
}

void PickWindow::EditMarks(beside::IMarkBoard& board)
{
    m_first.reset();
    m_controls->Enable(kTabs, true);
    m_controls->ShowMarkLine(true);
    m_marks->Use(&board);
    LayOut();
    Wait();
    m_marks->Use(nullptr);
    m_controls->ShowMarkLine(false);
}

void PickWindow::Cancel()
{
    m_answer.reset();
    m_isWaiting = false;
}

void PickWindow::Answer(Vec2 scene)
{
    if (!m_isTaking || !m_isWaiting || m_marks->AreEdited())
        return;
    m_answer = m_picture->map.ToDrawing(scene);
    m_isWaiting = false;
}

void PickWindow::TakeTyped()
{
    const auto point = scene::ParsePoint(m_controls->Text(kEntry), m_first);
    if (point) {
        m_answer = point;
        m_isWaiting = false;
        return;
    }
    m_controls->SetText(kHint, "Please type a point as x,y");
    SendMessageW(m_controls->Get(kEntry), EM_SETSEL, 0, -1);
    MessageBeep(MB_OK);
}

void PickWindow::TurnTab()
{
    const int tab = m_controls->Tab();
    if (onTurn && tab >= 0)
        onTurn(static_cast<std::size_t>(tab));
    SetFocus(m_view->Handle());
}

void PickWindow::TurnBy(int step)
{
    const int tab = m_controls->Tab() + step;
    if (IsWindowEnabled(m_controls->Get(kTabs)) == FALSE || tab < 0 || tab >= m_controls->TabCount())
        return;
    m_controls->TurnTo(tab);
    TurnTab();
}

void PickWindow::Switch(PickControl control)
{
    m_controls->Tick(control, !m_controls->IsTicked(control));
    OnCommand(control, BN_CLICKED);
}

/// Whether the message was a key that has been used.
bool PickWindow::TakeKey(const MSG& message)
{
    if (message.hwnd != Handle() && IsChild(Handle(), message.hwnd) == FALSE)
        return false;
    const bool isEntry = message.hwnd == m_controls->Get(kEntry);
    if (message.hwnd == m_view->Handle())
        NoteMinus(message);
    if (message.message == WM_KEYDOWN && (TakeControlKey(message.wParam) || (isEntry && TakeEntryKey(message.wParam))))
        return true;
    const bool isPlain = message.hwnd == m_view->Handle() && message.message != WM_SYSCHAR;
    const bool isTab = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
    return (!isPlain || isTab) && IsDialogMessageW(Handle(), const_cast<MSG*>(&message)) != FALSE;
}

bool PickWindow::TakeControlKey(WPARAM key)
{
    const HWND focus = GetFocus();
    const bool takesLetters = focus == m_controls->Get(kEntry) || focus == m_controls->Get(kMarks);
    if (focus == m_controls->Get(kMarks) && SendMessageW(focus, CB_GETDROPPEDSTATE, 0, 0) != FALSE)
        return false;
    switch (key) {
    case VK_ESCAPE:
        m_view->IsZoomWindow() ? m_view->SetZoomWindow(false) : Cancel();
        return true;
    case VK_F1:
        return Switch(kKeys), true;
    case VK_F3:
        return Switch(kSnaps), true;
    case 'B':
        return !takesLetters && !IsDown(VK_CONTROL) && (Switch(kDark), true);
    case VK_PRIOR:
    case VK_NEXT:
        return IsDown(VK_CONTROL) && (TurnBy(key == VK_PRIOR ? -1 : 1), true);
    default:
        return false;
    }
}

// An empty entry leaves the keys that move the view to the view.
bool PickWindow::TakeEntryKey(WPARAM key)
{
    if (key == VK_RETURN)
        return TakeTyped(), true;
    const bool isText = key == 'W' || key == VK_OEM_MINUS || key == VK_SUBTRACT;
    return !isText && m_controls->Text(kEntry).empty() && m_view->TakeKey(key);
}

// Digits typed over the drawing begin a point. "-" zooms out at once, which is taken back when a number follows.
bool PickWindow::TakeLetter(wchar_t letter)
{
    std::string typed = windows::Utf8(std::wstring(1, letter));
    if (m_marks->AreEdited())
        return false;
    if (!scene::BeginsNumber(typed) && typed != "@")
        return false;
    if (m_beforeMinus) {
        m_view->SetMap(*m_beforeMinus);
        typed.insert(0, "-");
    }
    m_beforeMinus.reset();
    const HWND entry = m_controls->Get(kEntry);
    SetFocus(entry);
    SendMessageW(entry, EM_SETSEL, static_cast<WPARAM>(-1), -1);
    SendMessageW(entry, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(windows::Wide(typed).c_str()));
    return true;
}

void PickWindow::NoteMinus(const MSG& message)
{
    const bool isKey = message.message == WM_KEYDOWN;
    if (isKey && (message.wParam == VK_OEM_MINUS || message.wParam == VK_SUBTRACT))
        m_beforeMinus = m_view->Map();
    else if (message.message == WM_CHAR && message.wParam != L'-' &&
             !scene::BeginsNumber(windows::Utf8(std::wstring(1, static_cast<wchar_t>(message.wParam)))))
        m_beforeMinus.reset();
}

void PickWindow::ShowPlace(std::optional<Vec2> scene)
{
    if (m_picture == nullptr || !scene)
        return m_controls->SetText(kPlace, {});
    m_controls->SetText(kPlace, scene::PointText(m_picture->map.ToDrawing(*scene), m_picture->decimals));
    ShowSnapping();
}

void PickWindow::ShowSnapping()
{
    const bool areOn = m_controls->IsTicked(kSnaps);
    if (m_view->Snapping() != areOn)
        m_view->SetSnapping(areOn);
    m_controls->SetText(kHint, scene::HintText(m_picture == nullptr && m_isWaiting, m_view->AtSnap(), areOn));
}

} // namespace sm::win32
