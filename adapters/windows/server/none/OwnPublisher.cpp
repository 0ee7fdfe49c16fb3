// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/publishing/OwnPublisher.h"

namespace sm::windows {

std::unique_ptr<IPublishingLibrary> CreateOwnPublisher(Surroundings&, std::function<void(const std::string&)>)
{
    return nullptr;
}

} // namespace sm::windows
