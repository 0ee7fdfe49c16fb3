// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/forms/Win32Toolkit.h"

#include "windows/forms/Win32FormView.h"

#include <utility>

namespace sm::windows {
namespace {

/// Where services run there is a window system, too, but nobody who could ever answer a dialog.
bool HasScreen()
{
    USEROBJECTFLAGS flags = {};
    const HWINSTA station = GetProcessWindowStation();
    return station != nullptr &&
           GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) != FALSE &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

class Win32Toolkit final : public IFormToolkit {
public:
    Win32Toolkit(std::function<HWND()> owner, IFormWatcher* watcher)
    {
        m_shown.owner = std::move(owner);
        m_shown.watcher = watcher;
    }
    std::unique_ptr<IFormView> MakeView(IForm& form) override
    {
        std::unique_ptr<IFormView> view;
        try {
            if (HasScreen())
                view = std::make_unique<Win32FormView>(form, m_shown);
        } catch (...) { // a want of memory or of windows: there is no screen to count on
        }
        return view;
    }

private:
    ShownForms m_shown;
};

} // namespace

std::unique_ptr<IFormToolkit> CreateWin32Toolkit(std::function<HWND()> owner, IFormWatcher* watcher)
{
    return std::make_unique<Win32Toolkit>(std::move(owner), watcher);
}

} // namespace sm::windows
