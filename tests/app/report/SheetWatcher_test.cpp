// SPDX-License-Identifier: GPL-3.0-or-later
// What a watched conversion leaves in its report.
#include "report/SheetWatcher.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

TEST(SheetWatcher, TellsOnceForASheetThatAnnotationsWereLost)
{
    DrawingReport report;
    std::ostringstream said;
    terminal::Console console(said, false);
    SheetWatcher watcher(report, console);
    const std::string line = "some annotations of a sheet could not be added; the log has the errors";
    watcher.SheetBegins("Ground", 1, 3);
    watcher.AnnotationsLost("No font");
    watcher.AnnotationsLost("No field");
    watcher.SheetEnds("Ground", 0, 4);
    EXPECT_EQ(report.notes, std::vector<std::string>{line});
    watcher.SheetBegins("Upper", 2, 3);
    watcher.SheetEnds("Upper", 0, 4);
    EXPECT_EQ(report.notes, std::vector<std::string>{line});
    watcher.SheetBegins("Roof", 3, 3);
    watcher.AnnotationsLost("Bad entity");
    EXPECT_EQ(report.notes, (std::vector<std::string>{line, line}));
}

} // namespace
} // namespace sm::app
