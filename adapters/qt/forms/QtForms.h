// The forms' toolkit on Qt.
#pragma once

#include "ports/IFormToolkit.h"

#include <memory>

namespace sm::qt {

/// One renderer for any form. Needs the application object for all of its life.
std::unique_ptr<IFormToolkit> CreateQtForms();

} // namespace sm::qt
