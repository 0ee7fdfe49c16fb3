// SPDX-License-Identifier: GPL-3.0-or-later
// Objects that callers hand over, as the ports that the plug-in knows. Null becomes null.
#pragma once

#include "ports/INativeDoc.h"
#include "settings/PageSetupRecord.h"

#include <oaidl.h>

namespace sm::windows {

/// Null, too, for an object that isn't a CAD host's application: it has no active document.
std::shared_ptr<IAcadApplication> HandedApplication(IDispatch* application);
std::shared_ptr<IAcadDocument> HandedDocument(IDispatch* document);
std::shared_ptr<IPubDoc> HandedPubDoc(IDispatch* pubDoc);
/// The front end's object has the property "Documents"; the list behind it has the method "ReleaseEntry", which takes
/// an index.
std::shared_ptr<INativeDocOwner> HandedOwner(IDispatch* owner);

/// What any page setup object tells of itself by its properties. Throws BadArgument when it is none, or null.
PageSetupRecord HandedPageSetup(IDispatch* setup);

} // namespace sm::windows
