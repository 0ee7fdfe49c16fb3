// SPDX-License-Identifier: GPL-3.0-or-later
// A page that its marks are drawn onto, and what is told of them.
#pragma once

#include "marks/Marks.h"
#include "pdf/Qpdf.h"

#include <cstddef>
#include <functional>
#include <string>

namespace sm::publisher {

/// Hears of what isn't as it was asked for.
using Note = std::function<void(const std::string& line)>;

/// A page that already has its final size.
struct SheetPage {
    QPDFObjectHandle page;
    std::string title;      ///< the sheet's name, may be empty
    double unit = 1;        ///< points per unit of the page's coordinates
    std::size_t number = 0; ///< from 1
    const Marks* marks = nullptr;
};

} // namespace sm::publisher
