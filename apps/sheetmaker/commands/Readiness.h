// What a conversion needs of its machine.
#pragma once

#include "machine/Install.h"

#include <iosfwd>
#include <string>

namespace sm::app {

/// Throws Refusal when the share folder or the PostScript interpreter is missing.
void NeedTools(const Install& install);

/// Throws Refusal when the user's settings can't be read: what isn't known isn't a default. Warnings go to `err`.
void NeedSettings(const Install& install, std::ostream& err);

/// Makes the folder that `pdfPath` goes to. Throws Refusal.
void MakeFolderOf(const std::string& pdfPath);

} // namespace sm::app
