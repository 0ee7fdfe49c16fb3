// Pages of PDF files that drawings refer to, for the front end.
#pragma once

#include "render/References.h"

#include <memory>
#include <string>

namespace sm::app {

/// `program`: the interpreter, a path or a name on $PATH.
std::shared_ptr<render::IPageRasterizer> CreateUnderlayPages(const std::string& program);

} // namespace sm::app
