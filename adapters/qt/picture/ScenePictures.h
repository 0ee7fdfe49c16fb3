// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a drawing as Qt paints them.
#pragma once

#include "render/Picture.h"

#include <QImage>
#include <map>
#include <utility>

namespace sm::qt {

/// Converted once each. A picture that can't be read is null.
class ScenePictures {
public:
    const QImage& Of(const render::Picture& picture, std::uint32_t color);

private:
    std::map<std::pair<std::uint64_t, std::uint32_t>, QImage> m_known;
};

} // namespace sm::qt
