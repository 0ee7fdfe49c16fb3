// SPDX-License-Identifier: GPL-3.0-or-later
// Makes PDF pages with the Ghostscript program, in a process of its own.
#pragma once

#include "pages/IPageMaker.h"

#include <chrono>
#include <memory>

namespace sm::publisher {

struct GhostscriptOptions {
    std::string program; ///< name or path
    std::chrono::milliseconds deadline{60000};
    std::chrono::milliseconds deadlinePerMegabyte{4000};
};

std::unique_ptr<IPageMaker> CreateGhostscriptPageMaker(const GhostscriptOptions& options);

} // namespace sm::publisher
