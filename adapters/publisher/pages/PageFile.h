// SPDX-License-Identifier: GPL-3.0-or-later
// Checks of what is handed over as a page, before anything is done with it.
#pragma once

#include <cstdint>
#include <string>

namespace sm::publisher {

/// Throws PublishFailure: PostScriptMissing when `path` can't be read as a file, NotPostScript when it is empty or
/// doesn't begin with "%!".
void CheckPostScriptFile(const std::string& path, std::size_t pageNumber);

/// Throws PublishFailure(PostScriptMissing) that names the page and the reason.
[[noreturn]] void FailReading(const std::string& path, std::size_t pageNumber, const std::string& reason);

/// Throws PublishFailure(PageSizeUnusable) unless both sides are from above 0 to 1,440,000 points and the resolution
/// from 72 to 4800 dots per inch.
void CheckPageSize(double width, double height, std::int32_t resolution, std::size_t pageNumber);

} // namespace sm::publisher
