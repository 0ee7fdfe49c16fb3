// SPDX-License-Identifier: GPL-3.0-or-later
// Text boxes and drop-down lists.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"

#include <algorithm>
#include <string_view>

#include <commctrl.h>

namespace sm::windows {
namespace {

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

/// A field is as high as its one line of text needs it, up to its place, in the middle of which it lies: text stands at
/// the top of a field that is higher.
RECT Centred(const RECT& place, LONG height)
{
    const LONG room = place.bottom - place.top, top = place.top + std::max(0L, (room - height) / 2);
    return {place.left, top, place.right, top + std::min(room, height)};
}

constexpr LONG kFieldRim = 8; ///< pixels that borders and air above and below the text take

/// What of an edit field's messages may move its caret.
bool MayMoveCaret(UINT message)
{
    return message == WM_KEYDOWN || message == WM_CHAR || message == WM_LBUTTONDOWN || message == WM_LBUTTONUP ||
           message == EM_SETSEL || message == WM_SETTEXT;
}

class TextWindow final : public ControlWindow {
public:
    explicit TextWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(L"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
        SendMessageW(Window(), EM_SETLIMITTEXT, 0, 0); // as much as there may be
    }
    [[nodiscard]] COLORREF Back() const override { return ColorOf(Shown().backColor); }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override { return {0, font.Height() + 6}; }
    void UseFont(const FormFont& font) override
    {
        ControlWindow::UseFont(font);
        m_textHeight = font.Height();
    }
    void Place(const RECT& place, const FormUnits& units) override
    {
        ControlWindow::Place(Centred(place, m_textHeight + kFieldRim), units);
    }
    void Entered() override { SendMessageW(Window(), EM_SETSEL, 0, -1); }
    void Command(int code) override
    {
        if (code == EN_CHANGE)
            TellText();
        else if (code == EN_KILLFOCUS && !IsKeyboardMoving()) // from a program that plays the user
            Reporter().Left(Position());
    }

private:
    void TellText()
    {
        const std::wstring text = TextOf(Window());
        Reporter().Tell(Position(), [&](IForm& form) { form.UserTyped(Position(), Utf8(text), CaretIn(text)); });
    }
    /// Bytes before the caret; the end of what is selected counts.
    [[nodiscard]] std::size_t CaretIn(const std::wstring& text) const
    {
        DWORD end = 0;
        SendMessageW(Window(), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
        return Utf8(std::wstring_view(text).substr(0, end)).size();
    }
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override
    {
        const LRESULT result = ControlWindow::Handle(message, wide, extra);
        if (MayMoveCaret(message) && !Reporter().IsSilent())
            TellCaret();
        return result;
    }
    void TellCaret()
    {
        const std::wstring text = TextOf(Window());
        const FormControl& state = Reporter().State(Position());
        const std::size_t caret = CaretIn(text);
        if (Utf8(text) == state.text && caret != state.caret)
            Reporter().Tell(Position(), [&](IForm& form) { form.UserMovedCaret(Position(), caret); });
    }
    void Apply(const FormControl& control, const FormControl&) override
    {
        const std::wstring wanted = Wide(control.text);
        const std::wstring text = TextOf(Window());
        if (text != wanted)
            SetWindowTextW(Window(), wanted.c_str());
        if (text == wanted && CaretIn(text) == control.caret)
            return; // what is selected stays so
        const auto caret = static_cast<WPARAM>(Wide(std::string_view(control.text).substr(0, control.caret)).size());
        SendMessageW(Window(), EM_SETSEL, caret, static_cast<LPARAM>(caret));
        SendMessageW(Window(), EM_SCROLLCARET, 0, 0);
    }

    LONG m_textHeight = 0;
};

class ComboWindow final : public ControlWindow {
public:
    explicit ComboWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(L"COMBOBOX", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL);
    }
    [[nodiscard]] COLORREF Back() const override { return ColorOf(Shown().backColor); }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override { return {0, font.Height() + 6}; }
    [[nodiscard]] bool IsOpen() const override { return SendMessageW(Window(), CB_GETDROPPEDSTATE, 0, 0) != 0; }
    /// While the list is open its choice is not made yet.
    void Command(int code) override
    {
        const bool isChoice = code == CBN_CLOSEUP || (code == CBN_SELCHANGE && !IsOpen());
        if (isChoice && Chosen() != Reporter().State(Position()).selection)
            Reporter().Selected(Position(), Chosen());
    }
    void Place(const RECT& place, const FormUnits& units) override
    {
        constexpr int kRowsOfList = 12;
        const LONG room = place.bottom - place.top, text = m_font != nullptr ? m_font->Height() : room;
        const LONG closed = Fold(std::min(room, text + kFieldRim));
        const auto row = static_cast<LONG>(SendMessageW(Window(), CB_GETITEMHEIGHT, 0, 0));
        RECT whole = Centred(place, closed);
        whole.bottom += kRowsOfList * row;
        ControlWindow::Place(whole, units);
    }
    void UseFont(const FormFont& font) override
    {
        ControlWindow::UseFont(font);
        m_font = &font;
        WidenList();
    }

private:
    [[nodiscard]] std::int32_t Chosen() const
    {
        return static_cast<std::int32_t>(SendMessageW(Window(), CB_GETCURSEL, 0, 0));
    }
    /// Makes the closed box that high; gives how high it is then.
    LONG Fold(LONG height)
    {
        constexpr auto kField = static_cast<WPARAM>(-1);
        const auto measured = [this] {
            RECT box = {};
            GetWindowRect(Window(), &box);
            return box.bottom - box.top;
        };
        const auto field = static_cast<LONG>(SendMessageW(Window(), CB_GETITEMHEIGHT, kField, 0));
        const LONG wanted = field + height - measured();
        if (wanted > 0 && wanted != field)
            SendMessageW(Window(), CB_SETITEMHEIGHT, kField, wanted);
        return measured();
    }
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.items != last.items)
            Fill(control.items);
        if (control.notice != last.notice)
            SendMessageW(Window(), CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(Wide(control.notice).c_str()));
        if (Chosen() != control.selection)
            SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(control.selection), 0);
    }
    void Fill(const std::vector<std::string>& items)
    {
        SendMessageW(Window(), CB_RESETCONTENT, 0, 0);
        for (const std::string& item : items)
            SendMessageW(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
        m_items = items;
        WidenList();
    }
    /// The list may be wider than the box, so that long names can be told apart.
    void WidenList()
    {
        constexpr LONG kWidest = 800, kAir = 12;
        LONG widest = 0;
        for (std::size_t i = 0; m_font != nullptr && i < m_items.size(); ++i)
            widest = std::max(widest, m_font->Size(Wide(m_items[i])).cx);
        widest = std::min(widest + kAir + GetSystemMetrics(SM_CXVSCROLL), kWidest);
        SendMessageW(Window(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest), 0);
    }
    /// The wheel passes over a list that hasn't got the keyboard.
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override
    {
        if (message == WM_MOUSEWHEEL && GetFocus() != Window())
            return 0;
        return ControlWindow::Handle(message, wide, extra);
    }

    const FormFont* m_font = nullptr;
    std::vector<std::string> m_items;
};

} // namespace

std::unique_ptr<ControlWindow> MakeFieldWindow(const ControlSite& site)
{
    if (site.control.kind == ControlKind::TextBox)
        return std::make_unique<TextWindow>(site);
    return site.control.kind == ControlKind::ComboBox ? std::make_unique<ComboWindow>(site) : nullptr;
}

} // namespace sm::windows
