// SPDX-License-Identifier: GPL-3.0-or-later
// The forms' toolkit on Qt.
#pragma once

#include "beside/SheetList.h"
#include "ports/IFormToolkit.h"

#include <memory>

namespace sm::qt {

/// One renderer for any form. Needs the application object for all of its life. What `sheets` points to when a form is
/// shown stands beside it; the pointer outlives the toolkit and may be null at any time.
std::unique_ptr<IFormToolkit> CreateQtForms(beside::ISheetList* const& sheets);

} // namespace sm::qt
