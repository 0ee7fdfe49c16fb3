// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/ScreenProbe.h"

#include "base/files/Paths.h"

#include <QGuiApplication>
#include <QLibraryInfo>

#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::qt {
namespace {

enum class Finding { There, Missing, Unknown };

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// The first platform asked for, without its options: "xcb" of "xcb:x=1;offscreen".
std::string PlatformAskedFor()
{
    const std::string asked = Environment("QT_QPA_PLATFORM");
    return asked.substr(0, asked.find_first_of(":;"));
}

/// Connects with the library of the X client side, which the platform plug-in itself stands on.
Finding TryXDisplay(const std::string& display, HeldDisplay& held)
{
    void* const library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return Finding::Unknown;
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto connect = reinterpret_cast<Connect>(dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(dlsym(library, "xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
        return Finding::Unknown;
    held.reset(connect(display.c_str(), nullptr), disconnect); // the library stays: Qt is about to need it
    return held != nullptr && hasError(held.get()) == 0 ? Finding::There : Finding::Missing;
}

/// The plug-in lies where Qt looks for it, and nothing sends Qt elsewhere.
bool HasPlatformPlugin(const std::string& name)
{
    if (!Environment("QT_QPA_PLATFORM_PLUGIN_PATH").empty() || !Environment("QT_PLUGIN_PATH").empty())
        return false;
    const std::string folder = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
    std::error_code ignored;
    return std::filesystem::exists(base::ToPath(folder + "/platforms/libq" + name + ".so"), ignored);
}

[[noreturn]] void StartAndLeave()
{
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    alarm(10);
    char name[] = "probe";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    _exit(0);
}

bool StartsInAChild()
{
    const pid_t child = fork();
    if (child == 0)
        StartAndLeave();
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return false;
    }
    return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool ScreenIsThere(std::string& why, HeldDisplay& held)
{
    const std::string platform = PlatformAskedFor(), display = Environment("DISPLAY");
    const bool mayBeWayland = !Environment("WAYLAND_DISPLAY").empty() || Environment("XDG_SESSION_TYPE") == "wayland";
    if (platform == "minimal" || (platform.empty() && display.empty() && !mayBeWayland)) {
        why = "There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set.";
        return false;
    }
    if (platform == "offscreen" && HasPlatformPlugin("offscreen"))
        return true;
    const bool isX = platform == "xcb" || (platform.empty() && !mayBeWayland);
    if (isX && HasPlatformPlugin("xcb")) {
        const Finding finding = TryXDisplay(display, held);
        if (finding == Finding::There)
            return true;
        if (finding == Finding::Missing) {
            why = "There is no screen: the display \"" + display + "\" can't be reached.";
            return false;
        }
    }
    if (StartsInAChild())
        return true;
    why = "There is no screen that windows could be shown on (platform \"" + (platform.empty() ? "default" : platform) +
          "\", DISPLAY \"" + display + "\").";
    return false;
}

} // namespace sm::qt
