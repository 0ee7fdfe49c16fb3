// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/WindowsSurroundings.h"

#include "ui/FormWindows.h"
#include "windows/forms/Win32Toolkit.h"
#include "windows/publishing/ChosenPublisher.h"
#include "windows/publishing/OwnPublisher.h"
#include "windows/system/Attempted.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

namespace sm::windows {
namespace {

/// The host's window of the drawing that a call works on; null outside a call, or for a host that has none.
HWND HostWindow(const CallContext& context)
{
    const auto document = context.g_AcadDoc;
    const std::int32_t handle = document ? Attempted(std::int32_t{0}, [&] { return document->HWND(); }) : 0;
    // Window handles are 32 bits wide, extended by their sign.
    const auto window = reinterpret_cast<HWND>(static_cast<INT_PTR>(handle));
    return IsWindow(window) != FALSE ? GetAncestor(window, GA_ROOT) : nullptr;
}

HWND OwnerOfForms(const CallContext& context)
{
    const HWND host = HostWindow(context);
    return host != nullptr ? host : GetActiveWindow();
}

/// A box that a form's handler opens lies over the form in front.
HWND OwnerOfBoxes(const CallContext& context)
{
    const HWND front = GetActiveWindow();
    return front != nullptr ? front : HostWindow(context);
}

} // namespace

WindowsSurroundings::WindowsSurroundings()
    : m_registry(CreateRegistry()), m_files(CreateFileSystem()),
      m_desktop(CreateWindowsDesktop([this] { return OwnerOfBoxes(m_context); })),
      m_toolkit(CreateWin32Toolkit([this] { return OwnerOfForms(m_context); })),
      m_windows(CreateFormWindows(m_context, *m_toolkit)),
      m_library(CreateChosenPublisher(m_surroundings, CreateOwnPublisher)), m_locale(CreateLocale()),
      m_clock(CreateClock()),
      m_component(CreateComponent()), m_surroundings{*m_registry, *m_files, *m_desktop,   *m_windows, *m_library,
                                                     *m_locale,   *m_clock, *m_component, m_observer},
      m_context{m_surroundings, nullptr, nullptr, nullptr}
{
}

} // namespace sm::windows
