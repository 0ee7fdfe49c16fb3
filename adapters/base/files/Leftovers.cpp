#include "base/files/Leftovers.h"

#include "base/files/FolderNames.h"
#include "base/files/Paths.h"
#include "files/Descriptor.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <random>

#include <sys/random.h>

namespace sm::base {

namespace {

constexpr std::size_t kRandomDigits = 16;
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

std::string Hexadecimal(std::uint64_t number)
{
    std::array<char, kRandomDigits> digits;
    digits.fill('0');
    std::array<char, kRandomDigits> significant{};
    const auto end = std::to_chars(significant.data(), significant.data() + significant.size(), number, 16).ptr;
    std::copy(significant.data(), end, digits.end() - (end - significant.data()));
    return {digits.data(), digits.size()};
}

/// The host's name, and a number for what tells apart machines of one name and the containers of a machine, in which
/// process numbers mean something else. (FNV-1a, 64 bits: offset 14695981039346656037, prime 1099511628211.)
std::string ThisMachine()
{
    std::array<char, 256> host{};
    if (::gethostname(host.data(), host.size() - 1) != 0)
        return "";
    std::array<char, 64> processes{};
    const ssize_t count = ::readlink("/proc/self/ns/pid", processes.data(), processes.size());
    std::uint64_t number = 14695981039346656037U;
    for (const char c :
         Contents("/etc/machine-id") + std::string(processes.data(), static_cast<std::size_t>(count > 0 ? count : 0)))
        number = (number ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::string name = host.data();
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-')
            c = '_';
    return name + "." + Hexadecimal(number);
}

/// Who makes temporary things here: machine, process and start.
const std::string& OwnMark()
{
    thread_local pid_t process = 0; // a forked process is another one
    thread_local std::string mark;
    if (process != ::getpid()) {
        process = ::getpid();
        mark = ThisMachine() + "-" + std::to_string(process) + "-" + std::to_string(StateOf(process).start);
    }
    return mark;
}

std::uint64_t RandomNumber()
{
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number)
        number = std::uint64_t{std::random_device()()} << 32 | std::random_device()();
    return number;
}

/// Takes what stands behind the last "-" off the text.
std::optional<std::string_view> TakeLastPart(std::string_view& text)
{
    const std::size_t dash = text.rfind('-');
    if (dash == std::string_view::npos)
        return std::nullopt;
    const std::string_view part = text.substr(dash + 1);
    text = text.substr(0, dash);
    return part;
}

template <typename Number> std::optional<Number> NumberFrom(const std::optional<std::string_view>& text)
{
    Number number = 0;
    if (!text || text->empty())
        return std::nullopt;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
    return error == std::errc() && end == text->data() + text->size() ? std::optional(number) : std::nullopt;
}

bool HasEnded(std::int64_t process, std::uint64_t start)
{
    if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
        return true;
    const ProcessState now = StateOf(process); // unknown where one user can't see the processes of another
    return now.hasEnded || (start != 0 && now.start != 0 && now.start != start);
}

void VisitAbandoned(const std::string& folder, std::string_view prefix, std::string_view ending,
                    const std::function<void(const std::string&)>& visit)
{
    const auto look = [&](const FolderName& name) {
        if (IsAbandoned(name.Text(), prefix, ending))
            visit((folder.empty() ? "." : folder) + "/" + std::string(name.Text()));
    };
    VisitNames(folder, look, kMostNamesSeen);
}

} // namespace

std::string TemporaryName(std::string_view prefix, std::string_view ending)
{
    return std::string(prefix) + OwnMark() + "-" + Hexadecimal(RandomNumber()) + std::string(ending);
}

bool IsAbandoned(std::string_view name, std::string_view prefix, std::string_view ending)
{
    if (!name.starts_with(prefix) || !name.ends_with(ending) || name.size() < prefix.size() + ending.size())
        return false;
    std::string_view rest = name.substr(prefix.size(), name.size() - prefix.size() - ending.size());
    const auto random = TakeLastPart(rest);
    const auto start = NumberFrom<std::uint64_t>(TakeLastPart(rest));
    const auto process = NumberFrom<std::int32_t>(TakeLastPart(rest));
    static const std::string machine = ThisMachine();
    return random && random->size() == kRandomDigits && start && process && *process > 0 && !machine.empty() &&
           rest == machine && HasEnded(*process, *start);
}

void RemoveAbandonedFiles(const std::string& folder, std::string_view prefix, std::string_view ending)
{
    VisitAbandoned(folder, prefix, ending, [](const std::string& path) { ::unlink(path.c_str()); });
}

void RemoveAbandonedFolders(const std::string& folder, std::string_view prefix)
{
    VisitAbandoned(folder, prefix, "", [](const std::string& path) {
        struct stat state {};
        std::error_code ignored;
        if (::lstat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode) && state.st_uid == ::geteuid())
            std::filesystem::remove_all(ToPath(path), ignored);
    });
}

} // namespace sm::base
