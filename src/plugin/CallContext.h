// What one call of the plug-in works on: the host, the drawing, the open log. Set for the call and cleared after it.
#pragma once

#include "ports/IAcadApplication.h"
#include "ports/Surroundings.h"

namespace sm {

struct CallContext {
    Surroundings& surroundings;
    std::shared_ptr<IAcadApplication> g_AcadApp; ///< null between calls
    std::shared_ptr<IAcadDocument> g_AcadDoc;    ///< null between calls
    std::shared_ptr<IConversionLog> g_Log;       ///< null when no log is open
};

} // namespace sm
