// SPDX-License-Identifier: GPL-3.0-or-later
#include "win32/DrawingWindow.h"

#include "view/PickWindow.h"

#include <string_view>

namespace sm::win32 {
namespace {

/// Takes work for a thread while no window of it is there.
class Mailbox final : public OwnWindow {
public:
    Mailbox() { Make({L"SheetmakerDrawingMail", {}, 0, 0, HWND_MESSAGE}); }

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override { return ByDefault(message, wide, extra); }
};

class Win32PickScreen final : public scene::IPickScreen {
public:
    explicit Win32PickScreen(beside::IWindowMemory* memory) : m_memory(memory) {}

    scene::IPickWindow* Window() override { return m_window.get(); }
    scene::IPickWindow& Open() override
    {
        m_window = std::make_unique<PickWindow>(m_memory);
        return *m_window;
    }
    void Keep() override
    {
        if (m_mail == nullptr)
            m_mail = std::make_unique<Mailbox>();
        m_leaves = false;
    }
    void CloseSoon() override
    {
        m_leaves = true;
        m_mail->PostWork([this] {
            if (m_leaves)
                m_window.reset();
        });
    }
    void HideNow() override
    {
        if (m_window != nullptr)
            ShowWindow(m_window->Handle(), SW_HIDE);
    }
    void Post(std::function<void()> work) override { m_mail->PostWork(std::move(work)); }

private:
    beside::IWindowMemory* m_memory;
    std::unique_ptr<Mailbox> m_mail; ///< once something was picked
    std::unique_ptr<PickWindow> m_window;
    bool m_leaves = false;
};

} // namespace

std::unique_ptr<scene::IDrawingWindow> CreateDrawingWindow(const scene::DrawingWindowOptions& options)
{
    return std::make_unique<scene::DrawingPicks>(options, std::make_unique<Win32PickScreen>(options.memory));
}

HWND ActiveOwner()
{
    const HWND active = GetActiveWindow();
    wchar_t name[64] = {};
    GetClassNameW(active, name, 64);
    if (std::wstring_view(name) == PickWindow::kClass)
        return nullptr;
    const bool isBeside = (GetWindowLongW(active, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
    return isBeside ? GetWindow(active, GW_OWNER) : active;
}

} // namespace sm::win32
