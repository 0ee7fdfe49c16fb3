// SPDX-License-Identifier: GPL-3.0-or-later
// A user who answers every message box of the product.
#pragma once

#include <windows.h>

#include <atomic>
#include <thread>
#include <utility>

namespace sm::windows {

/// Presses the OK button of each box with the product's title, of whatever process, for as long as it lives.
class Presser {
public:
    Presser() : m_thread([this] { Press(); }) {}
    ~Presser() { m_stop = true; }
    Presser(const Presser&) = delete;
    Presser& operator=(const Presser&) = delete;

    [[nodiscard]] int Pressed() const { return m_pressed; }

private:
    void Press()
    {
        HWND last = nullptr;
        for (; !m_stop; Sleep(5)) {
            const HWND box = FindWindowW(L"#32770", L"Tarnwick Sheetmaker PDF");
            const HWND button = box == nullptr || IsWindowVisible(box) == FALSE ? nullptr : GetDlgItem(box, IDOK);
            if (button == nullptr)
                last = nullptr;
            else if (std::exchange(last, box) != box)
                PressIn(box);
        }
    }

    /// Counted first: once the message is there, the box's owner may go on and ask.
    void PressIn(HWND box)
    {
        ++m_pressed;
        if (PostMessageW(box, WM_COMMAND, IDOK, 0) == FALSE)
            --m_pressed;
    }

    std::atomic<bool> m_stop = false;
    std::atomic<int> m_pressed = 0;
    std::jthread m_thread;
};

} // namespace sm::windows
