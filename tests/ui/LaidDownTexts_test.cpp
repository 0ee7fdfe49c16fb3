// SPDX-License-Identifier: GPL-3.0-or-later
// Every text that the forms are to write or show, and every handler that they have, occurs in the tests.
#include "doubles/LaidDownTexts.h"
#include "doubles/ScriptedToolkit.h"

#include <gtest/gtest.h>

namespace sm {
namespace {

const bool kTextsRegistered = RequireLaidDownTexts({
    {"SHOW CONVERSION SETTINGS FORM"},
    {"RUNTIME ERROR: SetConversionSettingsTab -", false},
    {"RUNTIME ERROR: SetPageSetupTab -", false},
    {"RUNTIME ERROR: SetStampTab -", false},
    {"RUNTIME ERROR: SetAttachTab -", false},
    {"RUNTIME ERROR: SetDigSigTab -", false},
    {"RUNTIME ERROR: SaveConversionSettingsTab -", false},
    {"RUNTIME ERROR: SavePageSetupTab -", false},
    {"RUNTIME ERROR: SaveStampTab -", false},
    {"RUNTIME ERROR: SaveAttachTab -", false},
    {"RUNTIME ERROR: SaveDigSigTab -", false},
    {"RUNTIME ERROR: ShowConversionSettings -", false},
    {"RUNTIME ERROR: ShowPageSetup -", false},
    {"Before converting to PDF you must initialize the Page Setup for each Model or Layout Tab to be converted. "
     "\r\nDo this using the AutoCAD /File/Page_Setup/ menu item."},
    {"An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
     "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould "
     "you like to view the log file now?"},
    {"To properly transfer block attributes to PDF file properties, the block names and attribute\r\ntag strings must "
     "only contain letters and numbers. All punctuation characters will be \r\nconverted to the '-' character and "
     "trailing punctuation will be removed.\r\n\r\nWould you like to be reminded of this in the future?"},
    {"Please enter a valid Filename, Layout Tab and Icon Location."},
    {"This digital signature box already exists, please enter a unique Name to continue."},
    {"You must enter a valid Name, Layout Tab and Rectangle."},
});

const bool kHandlersRegistered =
    RequireEveryHandler({"frmGUITap", "frmPageSetup", "frmAttach", "frmDigSig", "frmCustomStamp", "frmPlotStyle",
                         "frmJobOpts", "frmPageSize", "frmProgress"});

TEST(LaidDownForms, AreCheckedWhenTheWholeProgramHasRun)
{
    EXPECT_TRUE(kTextsRegistered);
    EXPECT_TRUE(kHandlersRegistered);
    EXPECT_EQ(ExercisedHandlers().count("frmGUITap.btnNone Click"), 0U);
}

} // namespace
} // namespace sm
