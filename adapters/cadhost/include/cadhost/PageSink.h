// SPDX-License-Identifier: GPL-3.0-or-later
// What takes plotted pages in place of files.
#pragma once

#include "render/Canvas.h"
#include "render/Matrix.h"

#include <atomic>

namespace sm::cadhost {

class IPageSink {
public:
    virtual ~IPageSink() = default;
    /// Drawn on in millimetres from the page's lower-left corner, the page lying as it is read.
    [[nodiscard]] virtual render::ICanvas& Canvas() = 0;
    /// The page has been drawn: its sides, millimetres, and how points of the sheet as it leaves the plotter come on
    /// it.
    virtual void PageIs(double width, double height, const render::Matrix2& fromSheet) = 0;
    /// True once the page isn't wanted any more; null: it always is.
    [[nodiscard]] virtual const std::atomic<bool>* Stop() const { return nullptr; }
};

} // namespace sm::cadhost
