// SPDX-License-Identifier: GPL-3.0-or-later
// Where the tests of the drawing's windows find drawings, and keep what they saw.
#pragma once

#include <string>

namespace sm::win32 {

inline std::string& PictureFolder()
{
    static std::string folder;
    return folder;
}

inline std::string& SourceFolder()
{
    static std::string folder;
    return folder;
}

} // namespace sm::win32
