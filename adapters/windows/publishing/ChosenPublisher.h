// SPDX-License-Identifier: GPL-3.0-or-later
// Who makes the PDF for the component: the publishing library, or our own publisher.
#pragma once

#include "ports/IPubDoc.h"
#include "ports/Surroundings.h"

#include <functional>
#include <memory>
#include <string>

namespace sm::windows {

/// Makes our own publisher; null where there is none.
using OwnPublisherMaker = std::function<std::unique_ptr<IPublishingLibrary>(
    Surroundings& surroundings, std::function<void(const std::string& line)> note)>;

/// Asks the setting "PublishWith" and what is installed anew for each document and log. Where no document can be made,
/// the user is shown the reason, the log has it, and HostError is thrown. The log of a run that the library can't keep
/// for want of the library is our own. `surroundings` need not be whole yet; they outlive the publisher and all its
/// objects.
std::unique_ptr<IPublishingLibrary> CreateChosenPublisher(Surroundings& surroundings, OwnPublisherMaker makeOwn);

} // namespace sm::windows
