// SPDX-License-Identifier: GPL-3.0-or-later
// What one call of the plug-in works on: the host, the drawing, the open log. Set for the call and cleared after it.
#pragma once

#include "annotations/BlockNames.h"
#include "ports/Surroundings.h"

#include <memory>

namespace sm {

class IAcadApplication;
class IAcadDocument;
class IConversionLog;

struct CallContext {
    Surroundings& surroundings;
    std::shared_ptr<IAcadApplication> g_AcadApp; ///< null between calls
    std::shared_ptr<IAcadDocument> g_AcadDoc;    ///< null between calls
    std::shared_ptr<IConversionLog> g_Log;       ///< null when no log is open
    BlockNames blockNames{};                     ///< runs on over the sheets of the call
};

} // namespace sm
