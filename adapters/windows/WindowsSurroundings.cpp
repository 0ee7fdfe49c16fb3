#include "windows/WindowsSurroundings.h"

#include "ui/FormWindows.h"
#include "windows/publishing/AutomationPublisher.h"
#include "windows/system/Attempted.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

namespace sm::windows {
namespace {

/// Shows nothing: every form counts as one that can't be shown.
class NoScreen final : public IFormToolkit {
public:
    std::unique_ptr<IFormView> MakeView(IForm& /*form*/) override { return nullptr; }
};

/// The window that a dialog of a call is modal over.
HWND OwnerOf(const CallContext& context)
{
    const auto document = context.g_AcadDoc;
    const std::int32_t handle = document ? Attempted(std::int32_t{0}, [&] { return document->HWND(); }) : 0;
    // Window handles are 32 bits wide, extended by their sign.
    const auto window = reinterpret_cast<HWND>(static_cast<INT_PTR>(handle));
    return IsWindow(window) != FALSE ? GetAncestor(window, GA_ROOT) : GetActiveWindow();
}

} // namespace

WindowsSurroundings::WindowsSurroundings()
    : m_registry(CreateRegistry()), m_files(CreateFileSystem()),
      m_desktop(CreateWindowsDesktop([this] { return OwnerOf(m_context); })), m_toolkit(std::make_unique<NoScreen>()),
      m_windows(CreateFormWindows(m_context, *m_toolkit)),
      m_annotations([this]() -> CallContext& { return m_context; }, {}), m_library(CreateAutomationPublisher()),
      m_locale(CreateLocale()), m_clock(CreateClock()),
      m_component(CreateComponent()), m_surroundings{*m_registry, *m_files,  *m_desktop, *m_windows,   m_annotations,
                                                     *m_library,  *m_locale, *m_clock,   *m_component, m_observer},
      m_context{m_surroundings, nullptr, nullptr, nullptr}
{
}

} // namespace sm::windows
