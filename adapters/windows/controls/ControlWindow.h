// SPDX-License-Identifier: GPL-3.0-or-later
// One control of a form as a window: shows the control's state, and reports what the user does.
#pragma once

#include "windows/controls/FormFont.h"
#include "windows/controls/FormReporter.h"
#include "windows/controls/FormUnits.h"

#include <cstddef>
#include <memory>
#include <string>

#include <windows.h>

namespace sm::windows {

/// A control's window has this plus its position for its id: the small ones have meanings of their own in dialogs.
inline constexpr int kFirstControlId = 100;

class ControlWindow;

/// What a control's window is made from.
struct ControlSite {
    const FormControl& control;
    std::size_t position;
    HWND parent;
    ControlWindow* holder; ///< the control that it lies in; null for the form
    FormReporter& reporter;
    bool clickable; ///< something happens on a press
};

/// A window belongs to its parent window, the view of it to the form's view.
class ControlWindow {
public:
    explicit ControlWindow(const ControlSite& site);
    virtual ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    /// Null for a control without a window of its own.
    [[nodiscard]] HWND Window() const { return m_window; }
    /// Brings the window in step. True when it may need another size or place now.
    bool Show(const FormControl& control);
    virtual void Enable(bool enabled);
    virtual void UseFont(const FormFont& font);
    virtual void Place(const RECT& place, const FormUnits& units);

    /// Pixels without which something of the control could not be read; 0 in a direction that doesn't matter.
    [[nodiscard]] virtual SIZE Needed(const FormFont&) const { return {0, 0}; }
    /// False when a caption of several lines needs more room.
    [[nodiscard]] virtual bool WrapsInto(const FormFont&, const SIZE&) const { return true; }
    /// Pixels at the edges that border and caption take from what lies inside.
    [[nodiscard]] virtual RECT Border(const FormFont&) const { return {}; }
    /// The colour on which what lies inside stands.
    [[nodiscard]] virtual COLORREF Surface() const;
    /// The colour behind the control's own text.
    [[nodiscard]] virtual COLORREF Back() const { return Surface(); }

    // What the window tells the form's own.
    virtual void Command(int) {}
    /// Gives what the window wants to know; 0 when nothing.
    virtual LRESULT Notify(const NMHDR&) { return 0; }
    virtual void Draw(const DRAWITEMSTRUCT&) {}

    // The keyboard.
    /// As if pressed with the mouse.
    virtual void Press() { m_reporter.Clicked(m_position); }
    /// Whether it has used the key.
    virtual bool TakeKey(WPARAM) { return false; }
    /// The keyboard came here by the Tab key.
    virtual void Entered() {}
    /// Enter and Escape are its own now.
    [[nodiscard]] virtual bool IsOpen() const { return false; }

protected:
    void Create(const wchar_t* windowClass, DWORD style, DWORD outerStyle = 0);
    /// `last` is what was shown before. What the user can change is compared with the window instead.
    virtual void Apply(const FormControl& control, const FormControl& last);
    virtual LRESULT Handle(UINT message, WPARAM wide, LPARAM extra);
    [[nodiscard]] const FormControl& Shown() const { return m_shown; }
    [[nodiscard]] std::size_t Position() const { return m_position; }
    [[nodiscard]] FormReporter& Reporter() const { return m_reporter; }
    /// The window is told that the keyboard comes or goes; some windows then send what no user has done.
    [[nodiscard]] bool IsKeyboardMoving() const { return m_keyboardMoves; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra, UINT_PTR id,
                                      DWORD_PTR self);
    LRESULT HandleAny(UINT message, WPARAM wide, LPARAM extra);

    FormReporter& m_reporter;
    std::size_t m_position;
    HWND m_parent;
    ControlWindow* m_holder;
    HWND m_window = nullptr;
    FormControl m_shown;
    bool m_isNew = true, m_keyboardMoves = false, m_canFocus;
};

using ControlWindows = std::vector<std::unique_ptr<ControlWindow>>; ///< in the order of the form's table

std::unique_ptr<ControlWindow> MakeControlWindow(const ControlSite& site);

// One function for each family of kinds; null for a kind of another family.
std::unique_ptr<ControlWindow> MakePressWindow(const ControlSite& site);
std::unique_ptr<ControlWindow> MakeFieldWindow(const ControlSite& site);
std::unique_ptr<ControlWindow> MakeListWindow(const ControlSite& site);
std::unique_ptr<ControlWindow> MakeToolWindow(const ControlSite& site);
std::unique_ptr<ControlWindow> MakePlainWindow(const ControlSite& site);
std::unique_ptr<ControlWindow> MakeHolderWindow(const ControlSite& site);

COLORREF ColorOf(const ControlColor& color);

} // namespace sm::windows
