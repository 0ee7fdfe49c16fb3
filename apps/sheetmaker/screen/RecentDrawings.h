// SPDX-License-Identifier: GPL-3.0-or-later
// The drawings that were opened lately in the windows.
#pragma once

#include "beside/Drawings.h"
#include "beside/WindowMemory.h"

#include <string>
#include <vector>

namespace sm::app {

inline constexpr std::size_t kMostRecentDrawings = 10;

/// Absolute paths, the latest first; those that are gone are left out. Without a memory: none.
std::vector<std::string> RecentDrawings(beside::IWindowMemory* memory);
/// Puts the drawing at `path` in front.
void RememberDrawing(beside::IWindowMemory* memory, const std::string& path);

/// The ways from the drawing that a run has open.
class OtherDrawings final : public beside::IDrawings {
public:
    /// `own` isn't listed.
    OtherDrawings(beside::IWindowMemory* memory, std::string own, bool hasMarkWindow)
        : m_memory(memory), m_own(std::move(own)), m_hasMarkWindow(hasMarkWindow)
    {
    }
    [[nodiscard]] std::vector<std::string> Recent() override;
    void OpenNext(const std::string& path) override { m_next = path; }
    [[nodiscard]] bool CanEditMarks() const override { return m_hasMarkWindow; }
    void EditMarksNext() override { m_wantsMarks = true; }
    [[nodiscard]] bool WantsMarks() const { return m_wantsMarks; }
    /// What is to be opened next; empty: nothing.
    [[nodiscard]] const std::string& Next() const { return m_next; }

private:
    beside::IWindowMemory* m_memory;
    std::string m_own, m_next;
    bool m_hasMarkWindow, m_wantsMarks = false;
};

} // namespace sm::app
