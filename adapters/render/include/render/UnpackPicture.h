// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures for devices that don't read JPEG files.
#pragma once

#include "render/Picture.h"

#include <optional>

namespace sm::render {

/// The rows of a picture that is a JPEG file, as Gray or Rgb; its other properties stay. Nothing for a damaged file,
/// and for pictures of other forms.
std::optional<Picture> UnpackPicture(const Picture& picture);

} // namespace sm::render
