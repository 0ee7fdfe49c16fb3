// SPDX-License-Identifier: GPL-3.0-or-later
// The setting "PublishWith": who makes the PDF for the component of Windows.
#pragma once

#include "ports/PlotNumbers.h"

namespace sm {

/// By itself the component takes the publishing library where that is registered, else our own publisher.
enum PublishWith : std::int32_t { kPublishWithEither = 0, kPublishWithOwn = 1, kPublishWithLibrary = 2 };

inline constexpr NamedNumber kPublishWith[] = {
    {kPublishWithEither, "Automatic"}, {kPublishWithOwn, "Own"}, {kPublishWithLibrary, "Library"}};

} // namespace sm
