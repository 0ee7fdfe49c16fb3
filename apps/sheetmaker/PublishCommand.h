// "publish": sheets of several drawings become one PDF.
#pragma once

#include "sheetmaker/Install.h"
#include "sheetmaker/Jobs.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace sm::app {

/// A drawing of the set, with the layout asked for.
struct SetPart {
    std::string drawing;
    std::optional<std::string> layout;
    friend bool operator==(const SetPart&, const SetPart&) = default;
};

/// "plan.dxf:Ground floor" is a drawing and a layout unless a file has that whole name.
SetPart ParseSetPart(const std::string& text);

/// The PDF goes to its place, its name to `out`, everything else to `err`. Returns the exit code.
int RunPublish(const PublishJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
