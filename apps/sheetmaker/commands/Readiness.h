// SPDX-License-Identifier: GPL-3.0-or-later
// What a conversion needs of its machine.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>
#include <string>

namespace sm::app {

/// Throws Refusal when the share folder or the PostScript interpreter is missing.
void NeedTools(const Install& install);

/// Throws Refusal when the user's settings can't be read: what isn't known isn't a default. Warnings go to `err`.
void NeedSettings(const Install& install, std::ostream& err);

/// Throws Refusal where SOURCE_DATE_EPOCH is set to what is no time.
void NeedBuildDate(const Install& install);

/// Gives the job options that were asked for the name by which they are installed. Throws Refusal where there are none
/// of that name.
void NeedJobOptions(ConvertOptions& options, const Install& install);

/// Makes the folder that `pdfPath` goes to. Throws Refusal.
void MakeFolderOf(const std::string& pdfPath);

} // namespace sm::app
