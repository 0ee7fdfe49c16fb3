// Pages of PDF files as pixels, by the PostScript interpreter in a process of its own.
#pragma once

#include "render/References.h"

#include <memory>
#include <string>

namespace sm::app {

/// `program`: the interpreter, a path or a name on $PATH. Each call runs it once, within limits and a deadline, where
/// it can read nothing but the one file.
std::shared_ptr<render::IPageRasterizer> CreateUnderlayPages(const std::string& program);

} // namespace sm::app
