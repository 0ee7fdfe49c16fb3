// SPDX-License-Identifier: GPL-3.0-or-later
// Every text that the plug-in object, the driver and the host validation are to write or show.
#include "doubles/LaidDownTexts.h"
#include "doubles/ProducedTexts.h"

#include <gtest/gtest.h>

namespace sm {
namespace {

const bool kRegistered = RequireLaidDownTexts({
    {"PLUGIN STARTING PDF FILE: ", false},
    {"PDF FILE SAVED"},
    {"ERROR: READER NOT INSTALLED"},
    {"ERROR SAVING PDF FILE: ", false},
    {"  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX Application object."},
    {"  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveDrawing object."},
    {"  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveLayout object."},
    {"Certain AutoCAD functionality, which allows 3rd party plugins to operate, has been corrupted.\r\nThis is "
     "typically caused by uninstalling AutoCAD 14 after installing AutoCAD 2000. The problem\r\ncan be corrected by "
     "reinstalling AutoCAD 2000."},
    {"A Log file has not yet been created."},
    {"Could not open PDF file because the PDF Reader is not installed."},
    {"An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
     "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould "
     "you like to view the log file now?"},
});

TEST(LaidDownLines, AreCheckedWhenTheWholeProgramHasRun)
{
    EXPECT_TRUE(kRegistered);
    EXPECT_EQ(ProducedTexts().count("a text that nothing produces"), 0U);
}

} // namespace
} // namespace sm
