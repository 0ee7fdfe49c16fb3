// SPDX-License-Identifier: GPL-3.0-or-later
// The publishing library, late-bound: the objects "TwSmPubLib.PubDoc" and "TwSmPubLib.ConversionLog".
#pragma once

#include "ports/IPubDoc.h"

struct IDispatch;

namespace sm::windows {

/// Making an object throws HostError, with a text that names the library, when it isn't installed or can't be started.
std::unique_ptr<IPublishingLibrary> CreateAutomationPublisher();
/// A publishing document that the front end handed over. Throws HostError for null.
std::shared_ptr<IPubDoc> CreateAutomationPubDoc(IDispatch* pubDoc);

} // namespace sm::windows
