// SPDX-License-Identifier: GPL-3.0-or-later
// Paints recorded items into an image.
#pragma once

#include "scene/Backdrop.h"
#include "scene/LayoutPicture.h"
#include "scene/PixelCanvas.h"
#include "scene/ViewMap.h"

#include <functional>

namespace sm::scene {

/// Paints sheet and items of `picture` into the part `region` of `image`, which shows what `map` says, by a canvas of
/// `canvases`. What is less than half a pixel becomes a dot. `goOn` is asked now and then; false leaves the rest out,
/// and then false comes back.
bool PaintPicture(const LayoutPicture& picture, const ViewMap& map, PixelImage& image, const PixelBox& region,
                  IPixelCanvases& canvases, const std::function<bool()>& goOn, Backdrop backdrop = Backdrop::Light);

} // namespace sm::scene
