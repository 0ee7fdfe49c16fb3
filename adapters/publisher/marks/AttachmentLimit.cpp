// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/AttachmentLimit.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::publisher {

std::string TooLargeToAttach(std::uint64_t bytes, std::int32_t mostMebibytes)
{
    constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;
    const auto most = static_cast<std::uint64_t>(std::max(mostMebibytes, 0));
    if (bytes <= most * kMebibyte) {
        return {};
    }
    return fmt::format(
        "it has {} bytes, more than the {} MiB that may be attached; \"sheetmaker set AttachmentLimit {}\" "
        "raises that",
        bytes, most, (bytes + kMebibyte - 1) / kMebibyte);
}

} // namespace sm::publisher
