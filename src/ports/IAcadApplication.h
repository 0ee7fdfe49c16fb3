// SPDX-License-Identifier: GPL-3.0-or-later
// The CAD host's application object and its preferences.
//
// Every operation may throw HostError.
#pragma once

#include "ports/IAcadDocument.h"

namespace sm {

class IAcadPreferences {
public:
    virtual ~IAcadPreferences() = default;
    /// ";"-separated list of folders.
    virtual std::string DriversPath() = 0;
    virtual std::string PrinterConfigPath() = 0;
    /// Throws HostError when the host refuses the folder.
    virtual void SetPrinterConfigPath(const std::string& path) = 0;
    virtual std::string ActiveProfile() = 0;
};

class IAcadApplication {
public:
    virtual ~IAcadApplication() = default;
    /// Null when no drawing is open.
    virtual std::shared_ptr<IAcadDocument> ActiveDocument() = 0;
    virtual std::shared_ptr<IAcadDocuments> Documents() = 0;
    virtual std::shared_ptr<IAcadPreferences> Preferences() = 0;
};

} // namespace sm
