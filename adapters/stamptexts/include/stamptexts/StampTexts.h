// SPDX-License-Identifier: GPL-3.0-or-later
// Text stamps in any script: the plotter sets what the publisher's standard fonts can't show.
#pragma once

#include "publisher/StampTexts.h"

#include <functional>
#include <memory>
#include <string>

namespace sm::stamptexts {

/// `remark` hears of each character that no font has; it may be empty.
std::unique_ptr<publisher::IStampTexts> CreateStampTexts(const std::string& shareFolder,
                                                         std::function<void(const std::string& remark)> remark);

} // namespace sm::stamptexts
