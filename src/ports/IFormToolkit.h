// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit that shows forms. A form is a table of controls with handlers behind it; the toolkit draws any form from
// the table, tells it what the user does, and holds no rule of any form.
//
// Nothing here throws, on either side. All calls are made on one thread.
#pragma once

#include "ports/FormControls.h"

#include <memory>

namespace sm {

enum class FormEvent { Load, Activate, QueryClose, Click, DoubleClick, Change, LostFocus, Enter };

/// A form as its view sees it. Controls are named by their position in the table; a position out of range is ignored,
/// and so is what is reported of a control that is disabled or not to be seen (itself or one of its parents).
///
/// A report may change any control, show another form modally, or hide this one before it returns.
class IForm {
public:
    virtual ~IForm() = default;
    /// Never changes its length or order; references into it stay valid for the life of the form.
    [[nodiscard]] virtual const std::vector<FormControl>& Controls() const = 0;
    /// Whether something happens on `event`, so that a view may show an image as something to press.
    [[nodiscard]] virtual bool Handles(std::size_t control, FormEvent event) const = 0;

    /// Once for each ShowModal, when the window has come up and its first painting is due.
    virtual void UserActivated() = 0;
    /// The text box now holds `text`, its caret behind `caret` bytes.
    virtual void UserTyped(std::size_t control, const std::string& text, std::size_t caret) = 0;
    virtual void UserMovedCaret(std::size_t control, std::size_t caret) = 0;
    /// A button, tool button, colour button or image was pressed; a check box is to change over, an option to be
    /// ticked.
    virtual void UserClicked(std::size_t control) = 0;
    /// Another entry, row or tab page was chosen; -1 for none.
    virtual void UserSelected(std::size_t control, std::int32_t position) = 0;
    /// A row of a list view was pressed twice; it counts as chosen, too.
    virtual void UserDoubleClicked(std::size_t control, std::int32_t position) = 0;
    /// The control has lost the keyboard to another one of this form.
    virtual void UserLeft(std::size_t control) = 0;
    /// Enter in `control`. True: the form has used the key, and the toolkit does nothing more with it. Neither key
    /// closes a window by itself.
    virtual bool UserPressedEnter(std::size_t control) = 0;
    /// Escape anywhere in the form, with the same meaning of the result.
    virtual bool UserPressedEscape() = 0;
    /// The user, or the window system, wants the window closed. It stays up until the form asks the view to hide.
    virtual void UserClosed() = 0;
};

/// One form's window. Made hidden; goes away when destroyed, which never happens inside ShowModal.
class IFormView {
public:
    virtual ~IFormView() = default;
    /// Something that may change has changed in `control`: read it from the form anew. Comes while hidden, too, and
    /// may come while a report of the view is under way; it must not lead to another report.
    virtual void ControlChanged(std::size_t control) = 0;
    /// Shows the window, modal over whatever form of this toolkit is up, and returns after Hide. Everything the user
    /// entered is kept from one showing to the next. False, at once, when it can't be shown.
    virtual bool ShowModal() = 0;
    /// Lets ShowModal return once the report under way has returned. Hidden already: nothing happens.
    virtual void Hide() = 0;
    /// Lets waiting paint and input events run, then returns.
    virtual void PumpEvents() = 0;
};

class IFormToolkit {
public:
    virtual ~IFormToolkit() = default;
    /// The window of `form`, not shown yet; null when there is no screen. `form` outlives it.
    virtual std::unique_ptr<IFormView> MakeView(IForm& form) = 0;
};

} // namespace sm
