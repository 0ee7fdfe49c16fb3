// SPDX-License-Identifier: GPL-3.0-or-later
// Paths as file URIs, which hold every byte of a name, and back.
#pragma once

#include <string>

namespace sm::app {

/// "file:///home/ann/pl%E4n.dxf" for a path, made absolute by the working folder; empty for an empty path.
std::string FileUri(const std::string& path);
/// The path of such a URI; empty for any other text.
std::string PathOfUri(const std::string& uri);

} // namespace sm::app
