// SPDX-License-Identifier: GPL-3.0-or-later
// Where what a drawing brings along from other files is looked for, and what shows it.
#pragma once

#include "base/Geometry.h"
#include "drawing/DwgConverter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace sm::render {

/// Pages of PDF files as pixels. Both operations throw std::runtime_error with a reason that completes "the page …".
class IPageRasterizer {
public:
    /// Three bytes a pixel, from the top.
    struct Pixels {
        std::int32_t width = 0, height = 0;
        std::string rgb;
    };
    virtual ~IPageRasterizer() = default;
    /// Width and height in inches as shown; `page` counts from 1.
    virtual Vec2 SizeOf(const std::string& path, std::int32_t page) = 0;
    virtual Pixels Show(const std::string& path, std::int32_t page, double dotsPerInch) = 0;
};

struct ReferenceOptions {
    std::vector<std::string> supportFolders;          ///< asked after the drawing's own folder
    std::shared_ptr<IPageRasterizer> pages = nullptr; ///< null: PDF underlays can't be drawn
    drawing::DwgOptions dwg = {};                     ///< for drawings that are DWG files
};

} // namespace sm::render
