// SPDX-License-Identifier: GPL-3.0-or-later
// Key paths as they are compared.
#pragma once

#include "base/text/Names.h"

#include <string>

namespace sm::store {

using base::FoldCase;

/// A key path as it is compared: folded, without leading, trailing and doubled "\".
std::string FoldKeyPath(const std::string& path);

} // namespace sm::store
