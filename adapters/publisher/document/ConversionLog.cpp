#include "document/ConversionLog.h"

#include "pdf/AtomicFile.h"
#include "pdf/PublishStatus.h"
#include "pdf/TextDecoding.h"
#include "ports/HostError.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::publisher {

namespace {

constexpr int kAttempts = 100;

std::string TimeStamp()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min, local.tm_sec);
}

std::string OneLine(const std::string& text)
{
    std::string line = ValidUtf8(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
    return line + "\n";
}

/// Makes `path` anew. Two processes may do so at the same time: each gets a file of its own, the later one the name.
int OpenAnew(const std::string& path)
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        ::unlink(path.c_str());
        const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
    return -1;
}

void MakePrivateFolders(const std::filesystem::path& folder)
{
    std::error_code error;
    if (folder.empty() || std::filesystem::exists(folder, error)) {
        return;
    }
    std::filesystem::create_directories(folder.parent_path(), error);
    ::mkdir(folder.c_str(), 0700);
}

} // namespace

ConversionLog::ConversionLog(const PublisherOptions& options, IDesktop& desktop)
    : m_options(options), m_desktop(desktop)
{
}

ConversionLog::~ConversionLog()
{
    CloseLog();
}

std::string ConversionLog::PathOf(const std::string& fileName) const
{
    return (std::filesystem::path(m_options.logFolder) /
            (m_options.logFileName.empty() ? fileName : m_options.logFileName))
        .string();
}

void ConversionLog::OpenLog(const std::string& fileName, const std::string& applicationTitle)
{
    CloseLog();
    m_path = PathOf(fileName);
    MakePrivateFolders(m_options.logFolder);
    m_descriptor = OpenAnew(m_path);
    if (m_descriptor < 0) {
        throw HostError(fmt::format("The log file {} could not be opened: {}.", m_path, std::strerror(errno)));
    }
    Write(OneLine(fmt::format("{} {}", applicationTitle, TimeStamp())));
}

void ConversionLog::WriteLogLine(const std::string& text)
{
    if (m_descriptor >= 0) {
        Write(OneLine(text));
    }
}

void ConversionLog::Write(const std::string& text)
{
    try {
        WriteFully(m_descriptor, text.data(), text.size(), m_path);
    } catch (const PublishFailure& failure) {
        throw HostError(failure.what());
    }
}

void ConversionLog::CloseLog()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
}

bool ConversionLog::ShowLogFile(const std::string& fileName)
{
    const std::string path = PathOf(fileName);
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return false;
    }
    if (!m_desktop.OpenDocument(path) && m_options.printLog) {
        std::ifstream file(path, std::ios::binary);
        m_options.printLog(std::string(std::istreambuf_iterator<char>(file), {}));
    }
    return true;
}

} // namespace sm::publisher
