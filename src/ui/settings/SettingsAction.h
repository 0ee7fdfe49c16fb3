// SPDX-License-Identifier: GPL-3.0-or-later
// Why the settings dialog closes: what its buttons, and those of its row dialogs, leave for whoever shows it.
#pragma once

#include <cstdint>

namespace sm {

/// Why the settings dialog was closed.
inline constexpr std::int32_t kActionCancel = 0;
inline constexpr std::int32_t kActionOk = 1;
inline constexpr std::int32_t kActionPickPlotWindow = 2;
inline constexpr std::int32_t kActionPickStampPoint = 3;
inline constexpr std::int32_t kActionPickAttachPoint = 4;
inline constexpr std::int32_t kActionPickDigSigRectangle = 5;
inline constexpr std::int32_t kActionCreatePdf = 6;

} // namespace sm
