// SPDX-License-Identifier: GPL-3.0-or-later
// A machine of its own for one test: home, share folder, stand-ins for the tools.
#pragma once

#include "machine/Install.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace sm::app {

class Machine {
public:
    Machine()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sm-app-XXXXXX").string();
        m_root = mkdtemp(pattern.data());
        std::filesystem::create_directories(m_root / "bin");
        variables["PATH"] = (m_root / "bin").string();
        variables["HOME"] = (m_root / "home").string();
        variables["LOGNAME"] = "ann";
    }
    ~Machine()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    [[nodiscard]] const std::filesystem::path& Root() const { return m_root; }
    [[nodiscard]] std::string In(const std::string& name) const { return (m_root / name).string(); }

    std::string MakeFile(const std::string& name, const std::string& text = "") const
    {
        std::filesystem::create_directories((m_root / name).parent_path());
        std::ofstream(m_root / name, std::ios::binary) << text;
        return (m_root / name).string();
    }
    void MakeProgram(const std::string& name, const std::string& script) const
    {
        const std::string program = MakeFile("bin/" + name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }
    /// A share folder with all that the doctor looks for.
    void MakeShare() const
    {
        MakeFile("share/Drivers/ps8.hdi");
        MakeFile("share/PC3/Some.pc3");
        MakeFile("share/Settings/Graphics [600 dpi].joboptions");
        MakeFile("share/Settings/Print [1200 dpi].joboptions");
        MakeFile("share/Settings/readme.txt");
    }
    /// As the program would find it here.
    [[nodiscard]] Install Here() const
    {
        const auto share = m_root / "share";
        return {[values = variables](const std::string& name) -> std::optional<std::string> {
                    const auto found = values.find(name);
                    return found == values.end() ? std::nullopt : std::optional<std::string>(found->second);
                },
                {m_root / "home/.config/sheetmaker-pdf", m_root / "home/.local/state/sheetmaker-pdf",
                 std::filesystem::exists(share) ? share : std::filesystem::path()},
                "1.2.3"};
    }

    std::map<std::string, std::string> variables;

private:
    std::filesystem::path m_root;
};

inline std::string Contents(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace sm::app
