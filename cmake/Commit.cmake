# SPDX-License-Identifier: GPL-3.0-or-later
# Writes a source that tells the commit of the source tree, only when it has changed; none where there is no repository,
# as in a source archive.
#   cmake -DSOURCE=<folder> -DOUTPUT=<file> -P Commit.cmake
set(commit "")
find_package(Git QUIET)
if(GIT_FOUND AND EXISTS ${SOURCE}/.git)
    execute_process(COMMAND ${GIT_EXECUTABLE} -c safe.directory=* -C ${SOURCE} rev-parse --short=10 HEAD
                    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT [[
#include "machine/Version.h"

std::string sm::app::Commit()
{
    return "@commit@";
}
]])
