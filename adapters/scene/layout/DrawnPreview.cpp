// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/DrawnPreview.h"

#include "scene/DisplayRecorder.h"

namespace sm::scene {

DrawnPreview DrawPreview(beside::IPageSource& source, const std::atomic<bool>& stop)
{
    DisplayRecorder recorder(false);
    DrawnPreview drawn{nullptr, source.Draw(recorder, stop)};
    if (stop || drawn.page.width <= 0 || drawn.page.height <= 0)
        return drawn;
    auto picture = std::make_shared<LayoutPicture>();
    picture->list = recorder.TakeList();
    picture->paper = Box2{{0, 0}, {drawn.page.width, drawn.page.height}};
    picture->home = *picture->paper;
    drawn.picture = std::move(picture);
    return drawn;
}

} // namespace sm::scene
