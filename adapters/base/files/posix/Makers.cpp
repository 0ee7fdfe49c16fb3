// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/Makers.h"

#include "files/posix/Descriptor.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <random>

#include <sys/random.h>

namespace sm::base {

namespace {

constexpr std::size_t kStartField = 19; // behind the program's name in /proc/PID/stat: its 22nd field

/// The beginning of a small file of the system; empty when it can't be read.
std::string Contents(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string text(1024, '\0');
    const ssize_t count = file.IsOpen() ? ::read(file.Get(), text.data(), text.size()) : 0;
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
}

struct ProcessState {
    std::uint64_t start = 0; ///< in ticks since the machine's start; 0: unknown
    bool hasEnded = false;   ///< it is only waited for by its parent
};

ProcessState StateOf(std::int64_t process)
{
    const std::string text = Contents("/proc/" + std::to_string(process) + "/stat");
    std::size_t at = text.rfind(')'); // the program's name may hold blanks and brackets
    ProcessState state;
    if (at == std::string::npos)
        return state;
    state.hasEnded = text.compare(at, 3, ") Z") == 0 || text.compare(at, 3, ") X") == 0;
    for (std::size_t field = 0; field <= kStartField && at != std::string::npos; ++field)
        at = text.find(' ', at + 1);
    if (at != std::string::npos)
        std::from_chars(text.data() + at + 1, text.data() + text.size(), state.start);
    return state;
}

} // namespace

std::string MachineName()
{
    std::array<char, 256> host{};
    return ::gethostname(host.data(), host.size() - 1) == 0 ? host.data() : "";
}

std::string ThisMachine()
{
    const std::string host = MachineName();
    if (host.empty())
        return host;
    std::array<char, 64> processes{};
    const ssize_t count = ::readlink("/proc/self/ns/pid", processes.data(), processes.size());
    return MachineMark(host, Contents("/etc/machine-id") +
                                 std::string(processes.data(), static_cast<std::size_t>(count > 0 ? count : 0)));
}

std::uint64_t StartOf(std::int64_t process)
{
    return StateOf(process).start;
}

bool HasEnded(std::int64_t process, std::uint64_t start)
{
    if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
        return true;
    const ProcessState now = StateOf(process); // unknown where one user can't see the processes of another
    return now.hasEnded || (start != 0 && now.start != 0 && now.start != start);
}

std::uint64_t RandomNumber()
{
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number)
        number = std::uint64_t{std::random_device()()} << 32 | std::random_device()();
    return number;
}

bool IsOwnFolder(const std::string& path)
{
    struct stat state {};
    return ::lstat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode) && state.st_uid == ::geteuid();
}

} // namespace sm::base
