// SPDX-License-Identifier: GPL-3.0-or-later
// Why a drawing can't be opened or saved.
#pragma once

#include <stdexcept>

namespace sm::drawing {

/// What makes a drawing unusable. `what()` is one line that names the file, the place and the remedy.
class DrawingError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A DWG that can't be opened since what converts it isn't installed.
class DwgConverterMissing : public DrawingError {
public:
    using DrawingError::DrawingError;
};

} // namespace sm::drawing
