// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the manual pages and the completions, when the program is built.
//   make_pages FOLDER SHARE-FOLDER VERSION
#include "base/files/Paths.h"
#include "pages/Completions.h"
#include "pages/ManPages.h"
#include "preferences/SettingNames.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& file, const std::string& text)
{
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error(base::ToText(file) + " can't be written");
}

std::string Contents(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

CompletionNames NamesOf(const fs::path& share)
{
    CompletionNames names{SettingNameList(), {}};
    for (const auto& entry : fs::directory_iterator(share / "Settings"))
        if (entry.path().extension() == ".joboptions")
            names.jobOptions.push_back(base::ToText(entry.path().stem()));
    std::sort(names.jobOptions.begin(), names.jobOptions.end());
    return names;
}

void WritePages(const fs::path& folder, const fs::path& share, const std::string& version)
{
    const std::vector<CommandFacts> commands = AllCommands();
    const fs::path first = folder / "man" / "man1";
    Write(first / "sheetmaker.1", ProgramPage(commands, version));
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            Write(first / ("sheetmaker-" + command.name + ".1"), CommandPage(command, version));
    Write(folder / "man" / "man5" / "sheetmaker-report.5", ReportPage(Contents(share / "report.schema.json"), version));
    const CompletionNames names = NamesOf(share);
    Write(folder / "completions" / "sheetmaker", BashCompletion(commands, names));
    Write(folder / "completions" / "_sheetmaker", ZshCompletion(commands, names));
    Write(folder / "completions" / "sheetmaker.fish", FishCompletion(commands, names));
}

} // namespace
} // namespace sm::app

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: make_pages FOLDER SHARE-FOLDER VERSION\n";
        return 2;
    }
    try {
        sm::app::WritePages(argv[1], argv[2], argv[3]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "make_pages: " << error.what() << "\n";
        return 1;
    }
}
