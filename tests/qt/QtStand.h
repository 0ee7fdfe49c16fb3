// SPDX-License-Identifier: GPL-3.0-or-later
// One screen for the whole test program, which nobody sees.
#pragma once

#include "qt/MapMemory.h"
#include "qt/Screen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace sm::qt {

/// What was asked to be opened on the desktop of TheScreen; tests clear it.
inline std::vector<std::string>& Opened()
{
    static std::vector<std::string> opened;
    return opened;
}

/// Made when first asked for; stays until the process ends.
inline Screen& TheScreen()
{
    static Screen* const screen = [] {
        std::filesystem::create_directories(SM_SCREENS);
        const std::string monitor =
            SM_SCREENS "/monitor" + std::to_string(getpid()) + ".json"; // tests run side by side
        std::ofstream(monitor) << R"({"screens": [{"name": "monitor", "x": 0, "y": 0, "width": 2560, "height": 1600,
            "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
        if (std::getenv("SM_SEEN") == nullptr) // to watch the tests on a real screen
            setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + monitor).c_str(), 1);
        std::string why;
        auto made = Screen::Open({"/usr/share/some help",
                                  [](const std::string& path) {
                                      Opened().push_back(path);
                                      return path.find("missing") == std::string::npos;
                                  },
                                  &Memory()},
                                 why);
        EXPECT_EQ(why, "");
        std::filesystem::remove(monitor);
        return made.release();
    }();
    return *screen;
}

} // namespace sm::qt
