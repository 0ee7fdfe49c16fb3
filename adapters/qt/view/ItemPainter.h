// SPDX-License-Identifier: GPL-3.0-or-later
// Paints recorded items into an image.
#pragma once

#include "picture/Backdrop.h"
#include "picture/Hairline.h"
#include "picture/ScenePictures.h"
#include "picture/ViewMap.h"
#include "view/LayoutPicture.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <functional>
#include <unordered_map>

namespace sm::qt {

/// What painting keeps from one picture to the next; belongs to one thread.
struct PaintCache {
    ScenePictures pictures;
    std::unordered_map<std::uint32_t, QPainterPath> glyphs; ///< em, of the list at hand
};

/// Paints sheet and items of `picture` into the part `region` of `image` (32 bits, opaque), which shows what `map`
/// says. What is less than half a pixel becomes a dot. `goOn` is asked now and then; false leaves the rest out, and
/// then false comes back.
bool PaintPicture(const LayoutPicture& picture, const ViewMap& map, QImage& image, const QRect& region,
                  PaintCache& cache, const std::function<bool()>& goOn, Backdrop backdrop = Backdrop::Light);

} // namespace sm::qt
