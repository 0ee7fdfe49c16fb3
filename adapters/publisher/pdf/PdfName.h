// SPDX-License-Identifier: GPL-3.0-or-later
// The question for the PDF's name.
#pragma once

#include "ports/IDesktop.h"

#include <cstdint>
#include <string>

namespace sm::publisher {

/// Asks through `desktop` until the answer can be a file: ".pdf" is added where it is missing, a folder's name is
/// refused with a message. Empty when cancelled, or after three folders. A drawing's extension in `defaultName`
/// gives way to ".pdf".
std::string AskPdfName(IDesktop& desktop, const std::string& defaultName, std::int32_t owner,
                       const std::string& hostTitle);

} // namespace sm::publisher
