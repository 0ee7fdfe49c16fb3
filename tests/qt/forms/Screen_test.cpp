// SPDX-License-Identifier: GPL-3.0-or-later
// Whether there is a screen, and what opening it leaves alone.
#include "qt/QtStand.h"
#include "screen/ScreenProbe.h"

#include <QApplication>

#include <clocale>
#include <iostream>
#include <map>
#include <optional>

namespace sm::qt {
namespace {

/// Sets environment variables, and puts them back.
class Environment {
public:
    explicit Environment(const std::map<std::string, std::string>& wanted)
    {
        for (const char* name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE", "QT_PLUGIN_PATH"}) {
            const char* const value = std::getenv(name);
            m_before[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            const auto found = wanted.find(name);
            Put(name, found == wanted.end() ? std::nullopt : std::optional(found->second));
        }
    }
    ~Environment()
    {
        for (const auto& [name, value] : m_before)
            Put(name, value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    static void Put(const std::string& name, const std::optional<std::string>& value)
    {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }
    std::map<std::string, std::optional<std::string>> m_before;
};

struct Row {
    const char* name;
    std::map<std::string, std::string> environment;
    const char* why; ///< empty: there is a screen
};

const Row kRows[] = {
    {"nothing set", {}, "There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set."},
    {"a platform without windows",
     {{"QT_QPA_PLATFORM", "minimal"}},
     "There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set."},
    {"a display that isn't there", {{"DISPLAY", ":987"}}, "There is no screen: the display \":987\" can't be reached."},
    {"an X platform asked for by name",
     {{"QT_QPA_PLATFORM", "xcb:verbose"}, {"DISPLAY", ":987"}},
     "There is no screen: the display \":987\" can't be reached."},
    {"a platform that Qt hasn't got",
     {{"QT_QPA_PLATFORM", "crystal"}},
     "There is no screen that windows could be shown on (platform \"crystal\", DISPLAY \"\")."},
    {"a compositor that isn't there",
     {{"WAYLAND_DISPLAY", "wayland-987"}},
     "There is no screen that windows could be shown on (platform \"default\", DISPLAY \"\")."},
    {"windows that nobody sees", {{"QT_QPA_PLATFORM", "offscreen"}}, ""},
    {"found out in a child process", {{"QT_QPA_PLATFORM", "offscreen"}, {"QT_PLUGIN_PATH", "/usr/share"}}, ""},
    {"the first of several platforms", {{"QT_QPA_PLATFORM", "offscreen;xcb"}}, ""},
};

/// In a process without a screen of its own.
[[noreturn]] void ProbeAll()
{
    bool isRight = true;
    for (const Row& row : kRows) {
        const Environment environment(row.environment);
        std::string why;
        HeldDisplay held;
        const bool isThere = ScreenIsThere(why, held);
        if (why == row.why && isThere == why.empty())
            continue;
        std::cerr << row.name << ": " << isThere << " " << why << "\n";
        isRight = false;
    }
    std::_Exit(isRight ? 0 : 1);
}

TEST(ScreenProbe, TellsWhatIsMissing)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ProbeAll(), testing::ExitedWithCode(0), "^$");
}

TEST(ScreenOpen, IsRefusedWhileOneIsOpen)
{
    TheScreen();
    std::string why;
    EXPECT_EQ(Screen::Open({}, why), nullptr);
    EXPECT_EQ(why, "The screen is in use already.");
}

TEST(ScreenOpen, LeavesTheWritingOfNumbersAlone)
{
    TheScreen();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed()) << "a run goes on between two windows";
}

} // namespace
} // namespace sm::qt
