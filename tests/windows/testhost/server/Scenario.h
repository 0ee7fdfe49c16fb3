// SPDX-License-Identifier: GPL-3.0-or-later
// The machine of the test host's process: the scripted session of the tests, changed by a text file.
#pragma once

#include "doubles/TestHouse.h"

namespace sm::testhost {

/// Made on first use; lives as long as the process. The environment variable SM_TEST_SCENARIO names a text file of
/// these lines, in any order:
///     drawing PATH            full name of the open drawing
///     drivers FOLDERS         the host's DriversPath
///     plotters FOLDER         the user's plotter folder
///     pc3 FOLDER              where the six plotter configurations lie
///     plots FILE              every plot writes a copy of that file
///     hyperlink LAYOUT URL    an entity with a hyperlink on a layout ("Model", "Ground", "Upper")
///     fail CALL TEXT          a host call ("Layout.SetPlotType") fails with that text, always
///     fail-library CALL TEXT  the same of the publishing library ("PubDoc.SaveToPdf")
///     fault-at N              host call number N fails; "fault-from N" that and all after it
///     shown-as KIND           how such faults look: exception, unspecified, disconnected, wrong-type, empty-array
///     die-at N                the process ends at call number N on its objects
/// Lines that start with "#" and unknown ones are passed over.
HouseParts& House();

} // namespace sm::testhost
