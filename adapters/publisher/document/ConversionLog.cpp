// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/ConversionLog.h"

#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "base/process/ThisProcess.h"
#include "base/text/Utf8.h"
#include "pdf/PublishStatus.h"
#include "pdf/TargetFile.h"
#include "ports/HostError.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>

namespace sm::publisher {

namespace {

std::string TimeStamp()
{
    const std::tm local = base::LocalTime(std::time(nullptr));
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min, local.tm_sec);
}

std::string OneLine(const std::string& text)
{
    std::string line = base::ValidUtf8(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
    return line + "\n";
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
    return base::ToText(base::ToPath(m_options.logFolder) /
                        base::ToPath(m_options.logFileName.empty() ? fileName : m_options.logFileName));
}

void ConversionLog::OpenLog(const std::string& fileName, const std::string& applicationTitle)
{
    CloseLog();
    m_path = PathOf(fileName);
    base::MakePrivateFolders(m_options.logFolder);
    std::error_code error;
    m_file = base::File::CreateLog(m_path, error);
    if (!m_file.IsOpen()) {
        throw HostError(fmt::format("The log file {} could not be opened: {}.", m_path, error.message()));
    }
    Write(OneLine(fmt::format("{} {}", applicationTitle, TimeStamp())));
}

void ConversionLog::WriteLogLine(const std::string& text)
{
    if (m_file.IsOpen()) {
        Write(OneLine(text));
    }
}

void ConversionLog::Write(const std::string& text)
{
    try {
        m_file.Write(text);
    } catch (const std::system_error& error) {
        throw HostError(WritingFailure(m_path, error.code()).what());
    }
}

void ConversionLog::CloseLog()
{
    m_file.Close();
}

bool ConversionLog::ShowLogFile(const std::string& fileName)
{
    const std::string path = PathOf(fileName);
    std::error_code error;
    if (!std::filesystem::is_regular_file(base::ToPath(path), error)) {
        return false;
    }
    if (!m_desktop.OpenDocument(path) && m_options.printLog) {
        std::ifstream file(base::ToPath(path), std::ios::binary);
        m_options.printLog(std::string(std::istreambuf_iterator<char>(file), {}));
    }
    return true;
}

} // namespace sm::publisher
