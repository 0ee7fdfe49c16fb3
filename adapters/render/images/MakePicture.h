// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the rows of a picture into what a drawing wants to see of it.
#pragma once

#include "images/PictureFile.h"
#include "render/References.h"

#include <array>

namespace sm::render {

/// What each value becomes.
std::array<unsigned char, 256> ToneTable(const PictureLook& look);

/// The picture without its id. Black-and-white ones become masks of their black. Throws PictureError.
Picture MakePicture(std::unique_ptr<PictureFile> file, const PictureLook& look);

} // namespace sm::render
