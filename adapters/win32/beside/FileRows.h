// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are dropped on a form's list of files: each becomes a row of it, for which the row's own form asks.
#pragma once

#include "beside/Drawings.h"
#include "ports/IDesktop.h"
#include "ports/IFormToolkit.h"
#include "scene/RowFiles.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

namespace sm::win32 {

/// On the forms' thread.
class FileRows {
public:
    /// Runs something when the form's window has nothing else to do.
    using Soon = std::function<void(std::function<void()>)>;

    /// Both outlive it.
    FileRows(IDesktop& desktop, Soon soon);
    ~FileRows();
    FileRows(const FileRows&) = delete;
    FileRows& operator=(const FileRows&) = delete;

    /// Asks `desktop`; but when a row's form asks for its file, the one that was dropped is the answer.
    [[nodiscard]] IDesktop& Desktop();
    /// The form with the list has come up in `window`.
    void Serve(HWND window, IForm& form, const beside::FileList& files);
    void Forget();

    /// Whether the list is what is seen at that point of the form's window.
    [[nodiscard]] bool TakesAt(POINT at) const;
    void Add(const std::vector<std::string>& paths);
    /// Another form has come up, or has gone.
    void OtherAppeared(IForm& form);
    void OtherLeft();

private:
    class AnsweringDesktop;

    [[nodiscard]] const std::vector<ListRow>& Rows() const;
    void PressAdd();
    void AddNext();
    void GoOn();

    Soon m_soon;
    std::unique_ptr<AnsweringDesktop> m_desktop;
    HWND m_window = nullptr;
    IForm* m_form = nullptr; ///< null: none is up that takes files
    beside::FileList m_list;
    std::size_t m_position = 0; ///< of the list among the form's controls
    scene::RowFiles m_files;
};

} // namespace sm::win32
