// SPDX-License-Identifier: GPL-3.0-or-later
// The page that would come out, as a picture.
#pragma once

#include "beside/PageSource.h"
#include "scene/LayoutPicture.h"

#include <atomic>
#include <memory>

namespace sm::scene {

struct DrawnPreview {
    std::shared_ptr<const LayoutPicture> picture; ///< null: there is no page
    beside::PreviewPage page;
};

/// Draws the page that `source` found last. What isn't wanted any more when it is done has no picture.
DrawnPreview DrawPreview(beside::IPageSource& source, const std::atomic<bool>& stop);

} // namespace sm::scene
