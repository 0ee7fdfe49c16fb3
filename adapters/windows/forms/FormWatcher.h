// SPDX-License-Identifier: GPL-3.0-or-later
// Who wants to know which form is up, to stand beside it.
#pragma once

#include "ports/IFormToolkit.h"

#include <windef.h>

struct tagMSG; // of the system

namespace sm::windows {

/// Told on the forms' thread. Nothing here throws.
class IFormWatcher {
public:
    virtual ~IFormWatcher() = default;
    /// The form's window has come up.
    virtual void Appeared(HWND window, IForm& form) = 0;
    /// Something in the form that is up has changed.
    virtual void Changed(const IForm& form) = 0;
    /// The form is about to be hidden, or has been; may be told twice.
    virtual void Left(const IForm& form) = 0;
    /// Whether the message was one of a window beside the form, and has been used.
    virtual bool Take(const tagMSG& message) = 0;
};

/// The window of the control at that position of the form's table; null when it has none.
HWND WindowOfControl(HWND form, std::size_t position);

} // namespace sm::windows
