// SPDX-License-Identifier: GPL-3.0-or-later
// Small pieces of drawings and pictures.
#pragma once

#include "render/Canvas.h"

#include <string>

namespace sm::scene {

inline render::Path LineOf(Vec2 a, Vec2 b)
{
    render::Path path;
    path.MoveTo(a);
    path.LineTo(b);
    return path;
}

/// A group of a DXF file.
inline std::string Tag(int code, const std::string& value)
{
    return std::to_string(code) + "\n" + value + "\n";
}

} // namespace sm::scene
