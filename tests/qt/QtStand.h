// One screen for the whole test program, which nobody sees.
#pragma once

#include "qt/Screen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
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
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        std::string why;
        auto made = Screen::Open({"/usr/share/some help",
                                  [](const std::string& path) {
                                      Opened().push_back(path);
                                      return path.find("missing") == std::string::npos;
                                  }},
                                 why);
        EXPECT_EQ(why, "");
        return made.release();
    }();
    return *screen;
}

} // namespace sm::qt
