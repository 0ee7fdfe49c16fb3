// SPDX-License-Identifier: GPL-3.0-or-later
#include "Folders.h"

#include <gtest/gtest.h>

#include <windows.h>

/// Arguments: the source, and the folder for pictures.
int main(int count, char** arguments)
{
    SetProcessDPIAware();
    testing::InitGoogleTest(&count, arguments);
    if (count != 3)
        return 2;
    sm::win32::SourceFolder() = arguments[1];
    sm::win32::PictureFolder() = arguments[2];
    return RUN_ALL_TESTS();
}
