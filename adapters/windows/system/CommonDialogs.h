// SPDX-License-Identifier: GPL-3.0-or-later
// The system's file and colour dialogs.
#pragma once

#include "ports/IDesktop.h"

#include <windef.h>

namespace sm::windows {

/// Where a file dialog starts: the folder to list (empty: the system's choice) and the name in its box.
struct DialogStart {
    std::string folder, name;
    friend bool operator==(const DialogStart&, const DialogStart&) = default;
};

/// Of `FileDialog::defaultName`.
DialogStart StartOf(const std::string& defaultName);

/// The dialog's filter, names and patterns separated and ended by NULs.
std::wstring FilterOf(const FileDialog& dialog);

/// Nothing when cancelled.
std::optional<std::string> AskFile(const FileDialog& dialog, bool toSave, HWND owner);
/// RGB with red in the low byte; nothing when cancelled.
std::optional<std::int32_t> AskColorOf(std::int32_t initial, HWND owner);

} // namespace sm::windows
