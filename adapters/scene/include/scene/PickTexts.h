// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing's window says, and the marks that it shows, in every toolkit.
#pragma once

#include "beside/PageSource.h"
#include "scene/Backdrop.h"
#include "scene/LayoutPicture.h"
#include "scene/ViewMap.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm::scene {

struct KeyMeaning {
    const char* keys;
    const char* meaning;
};
/// The keys of the window.
std::span<const KeyMeaning> WindowKeys();

/// The snap in force, or what else is to be known.
std::string HintText(bool isReading, const std::optional<Snap>& snap, bool snapsAreOn);

/// Whether typed text begins a number, so that it may begin a point.
bool BeginsNumber(std::string_view typed);

/// Pixels that stamps of a layout without a paper are high.
inline constexpr double kModelStamp = 16;

/// Marks with places in drawing units as they are painted: places of the scene, colours for the background. Sizes are
/// those on paper; a model has none before it is plotted, and shows its stamps in one size.
std::vector<beside::PageMark> MarksInScene(std::vector<beside::PageMark> marks, const LayoutPicture& picture,
                                           const ViewMap& map, Backdrop backdrop);

} // namespace sm::scene
