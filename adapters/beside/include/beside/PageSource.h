// SPDX-License-Identifier: GPL-3.0-or-later
// The page that would come out, for the preview beside the settings dialog.
#pragma once

#include "base/Geometry.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace sm::render {
class ICanvas;
} // namespace sm::render

namespace sm::beside {

enum class PageMarkKind { Stamp, Attachment, Field, Link };

/// Millimetres from the lower-left corner of the page as it is read.
struct PageMark {
    PageMarkKind kind = PageMarkKind::Stamp;
    Vec2 from, to;                  ///< two corners; of stamps and attachments the point alone
    std::string text{};             ///< the stamp, the file's name, the field's name, the address
    std::string font{};             ///< of a stamp, as PDF names it
    double size = 0;                ///< of a stamp's font, millimetres
    std::int32_t color = 0;         ///< of a stamp, red in the low byte
    std::int32_t justification = 0; ///< of a stamp: 0 left, 1 centre, 2 right
    double turn = 0;                ///< degrees counter-clockwise, of a stamp's line
    friend bool operator==(const PageMark&, const PageMark&) = default;
};

struct PreviewPage {
    double width = 0, height = 0; ///< millimetres as the page is read; 0: there is none
    std::vector<PageMark> marks{};
    std::string trouble{}; ///< why there is no page, one sentence
};

/// Nothing here throws.
class IPageSource {
public:
    virtual ~IPageSource() = default;
    /// On the thread of the screen: looks at what is in force now; true when another page comes of it than the last
    /// time.
    virtual bool Renew() = 0;
    /// On another thread, one at a time: draws the page that the last `Renew` found. What is drawn after `stop` became
    /// true is of no use.
    virtual PreviewPage Draw(render::ICanvas& canvas, const std::atomic<bool>& stop) = 0;
};

} // namespace sm::beside
