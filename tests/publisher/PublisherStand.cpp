// SPDX-License-Identifier: GPL-3.0-or-later
#include "PublisherStand.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace sm::publisher {

namespace fs = std::filesystem;

ToolResult RunTool(const std::string& command)
{
    ToolResult result;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> block{};
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), pipe)) {
        result.output.append(block.data(), got);
    }
    const int status = ::pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> ListTree(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        names.push_back(fs::relative(entry.path(), folder).string() + (entry.is_directory() ? "/" : ""));
    }
    std::ranges::sort(names);
    return names;
}

std::string PageBody(const std::string& text)
{
    return "/Helvetica findfont 24 scalefont setfont 72 72 moveto (" + text +
           ") show 10 10 moveto 200 300 lineto stroke 1 0 0 setrgbcolor 10 20 100 5 rectfill\n";
}

PublisherTest::PublisherTest()
{
    std::string pattern = (fs::temp_directory_path() / "publisher-test-XXXXXX").string();
    m_root = ::mkdtemp(pattern.data());
    fs::create_directory(m_root + "/out");
    fs::create_directory(m_root + "/work");
    m_options.logFolder = m_root + "/log";
    m_options.workFolder = m_root + "/work";
    m_options.producer = "Test Producer 1.0";
    m_options.observer.note = [this](const std::string& line) { m_notes.push_back(line); };
    m_options.observer.saved = [this](const SaveReport& report) { m_reports.push_back(report); };
}

PublisherTest::~PublisherTest()
{
    std::error_code error;
    fs::remove_all(m_root, error);
}

std::string PublisherTest::PostScript(const std::string& name, const std::string& body) const
{
    WriteFile(Out(name), body);
    return Out(name);
}

std::string PublisherTest::NewPage(IPubDoc& doc, const std::string& text) const
{
    const std::string path = doc.NewPsFileName();
    WriteFile(path, "%!PS-Adobe-3.0\n%%Title: " + text + "\n%%EndComments\n" + PageBody(text) + "showpage\n%%EOF\n");
    return path;
}

std::string PublisherTest::JobOptionsFile(const std::string& name, const std::string& bytes) const
{
    WriteFile(Out(name), bytes);
    return Out(name);
}

} // namespace sm::publisher
