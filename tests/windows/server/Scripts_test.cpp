// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts as clients of the registered component.
#include "Presser.h"
#include "SystemProgram.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace sm::windows {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSettings = "Software\\Tarnwick Software";

class Scripts : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, kSettings);
        ASSERT_EQ(RunProgram(std::string("regsvr32 /s ") + SM_COMPONENT).exitCode, 0);
    }
    void TearDown() override
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, kSettings);
        EXPECT_EQ(RunProgram(std::string("regsvr32 /s /u ") + SM_COMPONENT).exitCode, 0);
    }
};

INSTANTIATE_TEST_SUITE_P(, Scripts, testing::Values("Plugin", "NativeDoc", "PageSetup", "TransferSettings"),
                         [](const auto& name) { return std::string(name.param); });

std::string Content(const fs::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

TEST_P(Scripts, EveryMemberTakesRightArgumentsAndRefusesWrongOnes)
{
    const Presser user;
    const fs::path folder = SM_SCRIPTS;
    const fs::path script = fs::temp_directory_path() / (std::string("sheetmaker-") + GetParam() + ".vbs");
    std::ofstream(script) << Content(folder / "Checks.vbs") << Content(folder / (std::string(GetParam()) + ".vbs"));
    const ProgramResult result = RunProgram("cscript //nologo " + script.string());
    fs::remove(script);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.output.find(", 0 failed"), std::string::npos) << result.output;
    EXPECT_EQ(result.output.find("FAILED"), std::string::npos);
    std::printf("%s: %s", GetParam(), result.output.c_str());
}

} // namespace
} // namespace sm::windows
