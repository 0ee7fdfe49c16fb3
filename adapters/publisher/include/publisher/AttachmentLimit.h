// SPDX-License-Identifier: GPL-3.0-or-later
// How large an attached file may be.
#pragma once

#include <cstdint>
#include <string>

namespace sm::publisher {

/// Why a file of `bytes` bytes isn't attached where `mostMebibytes` are allowed, as the end of a sentence; empty when
/// it may be.
std::string TooLargeToAttach(std::uint64_t bytes, std::int32_t mostMebibytes);

} // namespace sm::publisher
