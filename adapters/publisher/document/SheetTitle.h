// SPDX-License-Identifier: GPL-3.0-or-later
// The sheet's name from a PostScript file.
#pragma once

#include <string>
#include <string_view>

namespace sm::publisher {

/// The text of the "%%Title:" comment (DSC 3.0: plain, or a PostScript string) as UTF-8, or empty. Only the file's
/// first 4 KB are looked at. Throws PublishFailure(PostScriptMissing) when it cannot be read.
std::string ReadSheetTitle(const std::string& psPath, std::size_t pageNumber);
std::string FindSheetTitle(std::string_view head);

} // namespace sm::publisher
