// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs that ask for a file name.
#pragma once

#include "beside/WindowMemory.h"
#include "ports/IDesktop.h"

#include <optional>
#include <string>

class QWidget;

namespace sm::qt {

/// Where a dialog starts: a folder, empty for the current one, and a name, empty for none.
struct DialogStart {
    std::string folder, name;
    friend bool operator==(const DialogStart&, const DialogStart&) = default;
};

/// "<folder>\*.*" and "<folder>/*.*" name a folder alone.
DialogStart StartOf(const std::string& defaultName);

/// "PDF files (*.pdf *.PDF)"; "*" stands for every file, with a dot in its name or without.
std::string FilterOf(const FileDialog& dialog);

/// The path chosen, absolute, with the filter's first extension where a name to save had none; nothing when cancelled.
/// Modal over `owner`. A dialog that names no folder starts in the one that the last of its title ended in; null for a
/// memory: none is remembered.
std::optional<std::string> AskFile(const FileDialog& dialog, bool toSave, QWidget* owner,
                                   beside::IWindowMemory* memory);

} // namespace sm::qt
