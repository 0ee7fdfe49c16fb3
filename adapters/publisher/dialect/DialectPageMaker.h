// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the pages that our own plotter wrote without an interpreter, and leaves all others to one.
#pragma once

#include "pages/IPageMaker.h"

#include <functional>

namespace sm::publisher {

using NoteTaker = std::function<void(const std::string& line)>;

/// `others` makes the groups of pages that hold anything else than the plotter's dialect, or whose job options ask for
/// what only an interpreter does (colours turned, fonts left out). `note`, when set, hears what is lost then: layers,
/// transparency.
std::unique_ptr<IPageMaker> CreateDialectPageMaker(std::unique_ptr<IPageMaker> others, NoteTaker note = {});

/// True when pages of the dialect come out the same with these job options (our clean text of them) as without.
bool DialectRespects(const std::string& jobOptions);

} // namespace sm::publisher
