// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of PDF files that drawings refer to, for the front end.
#pragma once

#include "render/ReferenceOptions.h"

#include <memory>
#include <string>

namespace sm::app {

/// `program`: the interpreter, a path or a name on $PATH. `workFolder`: for temporary files; empty: the system's.
std::shared_ptr<render::IPageRasterizer> CreateUnderlayPages(const std::string& program, const std::string& workFolder);

} // namespace sm::app
