// SPDX-License-Identifier: GPL-3.0-or-later
// "publish" as a user runs it: which sheets, what is said, what is left behind.
#include "Dispatch.h"
#include "app/Fixtures.h"
#include "commands/PublishCommand.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

class Publish : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* sample : {"site.dxf", "house.dxf"})
            fs::copy_file(std::string(SM_SOURCE_DIR "/samples/") + sample, m_machine.In(sample));
        m_machine.variables["PATH"] = getenv("PATH");
        fs::create_directories(m_machine.Root() / "pdf");
    }

    int Run(std::vector<std::string> words)
    {
        Install install = m_machine.Here();
        install.places.shareFolder = SM_SOURCE_DIR "/share/sheetmaker-pdf";
        words.insert(words.begin(), {"publish", "-o", m_machine.In("pdf/set.pdf")});
        m_out.str("");
        m_err.str("");
        return RunProgram(words, install, m_out, m_err);
    }
    /// Stdout, the folder of the test left out.
    [[nodiscard]] std::string Out() const { return WithoutFolder(m_out.str()); }
    /// The lines of stderr that are no remark on fonts or mended places.
    [[nodiscard]] std::string Failures() const
    {
        std::istringstream all(m_err.str());
        std::string kept;
        for (std::string line; std::getline(all, line);)
            if (line.find(": fonts: ") == std::string::npos && line.find(": mended: ") == std::string::npos)
                kept += line + "\n";
        return WithoutFolder(kept);
    }
    [[nodiscard]] std::string WithoutFolder(std::string text) const
    {
        const std::string folder = m_machine.Root().string() + "/";
        for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder))
            text.erase(at, folder.size());
        return text;
    }
    [[nodiscard]] std::size_t FilesBesideThePdf() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_machine.Root() / "pdf"), {}));
    }

    Machine m_machine;
    std::ostringstream m_out, m_err;
};

TEST_F(Publish, PutsTheSheetsOfAllDrawingsIntoOnePdf)
{
    EXPECT_EQ(Run({m_machine.In("house.dxf"), m_machine.In("site.dxf"), m_machine.In("house.dxf:a-101 ground floor")}),
              0);
    EXPECT_EQ(Out(), "pdf/set.pdf -> pdf/set.pdf, 5 pages\n");
    EXPECT_EQ(Failures(), "");
    EXPECT_EQ(FilesBesideThePdf(), 1u);
}

TEST_F(Publish, TheLogHoldsEverySheet)
{
    EXPECT_EQ(Run({m_machine.In("house.dxf"), m_machine.In("site.dxf")}), 0);
    const fs::path folder = m_machine.Root() / "home/.local/state/sheetmaker-pdf";
    std::istringstream log(Contents(folder / "SmPdfAcad.log"));
    std::vector<std::string> tabs;
    std::string last;
    for (std::string line; std::getline(log, line); last = line)
        if (line.starts_with("  Layout Tab: "))
            tabs.push_back(line.substr(14));
    EXPECT_EQ(tabs, (std::vector<std::string>{"A-101 Ground Floor", "A-102 Upper Floor", "A-201 Section", "Site"}));
    EXPECT_EQ(last, "PDF FILE SAVED");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(Publish, AFailingDrawingEndsTheRunWithoutAPdf)
{
    EXPECT_EQ(Run({m_machine.In("site.dxf"), m_machine.In("missing.dxf"), m_machine.In("house.dxf")}), 1);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Failures(),
              "missing.dxf: failed: there is no such file; check the name\n"
              "sheetmaker publish: pdf/set.pdf was not written; --keep-going saves the sheets that succeed\n");
    EXPECT_EQ(FilesBesideThePdf(), 0u);
}

TEST_F(Publish, KeepGoingSavesWhatSucceeded)
{
    m_machine.MakeFile("empty.dxf");
    EXPECT_EQ(Run({"--keep-going", m_machine.In("site.dxf"), m_machine.In("empty.dxf"), m_machine.In("house.dxf:Roof"),
                   m_machine.In("house.dxf")}),
              1);
    EXPECT_EQ(Out(), "pdf/set.pdf -> pdf/set.pdf, 4 pages\n");
    EXPECT_EQ(Failures(), "empty.dxf: failed: the file is empty; save the drawing again\n"
                          "house.dxf: failed: the drawing has no layout \"Roof\"; it has \"Model\", \"A-101 Ground "
                          "Floor\", \"A-102 Upper Floor\", \"A-201 Section\"\n");
    EXPECT_EQ(FilesBesideThePdf(), 1u);
}

TEST_F(Publish, AMisspeltLayoutIsFoundBeforeTheFirstSheet)
{
    EXPECT_EQ(Run({m_machine.In("house.dxf"), m_machine.In("site.dxf:Sit")}), 2);
    EXPECT_EQ(Failures(), "sheetmaker publish: site.dxf has no layout \"Sit\"; did you mean \"Site\"?\n");
    EXPECT_EQ(Out(), "");
    EXPECT_FALSE(fs::exists(m_machine.Root() / "home/.local/state/sheetmaker-pdf/SmPdfAcad.log"));
}

TEST_F(Publish, ReportsTheSet)
{
    EXPECT_EQ(Run({m_machine.In("site.dxf"), "--report", "json", "--paper", "A4", "--fit", "--title", "All of it"}), 0);
    EXPECT_NE(Out().find("\"drawing\": \"pdf/set.pdf\""), std::string::npos) << Out();
    EXPECT_NE(Out().find("\"pages\": 1"), std::string::npos) << Out();
    EXPECT_NE(Out().find("\"layout\": \"Site\""), std::string::npos) << Out();
}

TEST_F(Publish, NothingThatSucceedsIsNoPdf)
{
    EXPECT_EQ(Run({"--keep-going", m_machine.In("missing.dxf")}), 1);
    EXPECT_EQ(Failures(), "missing.dxf: failed: there is no such file; check the name\n"
                          "sheetmaker publish: no sheet could be converted; pdf/set.pdf was not written\n");
    EXPECT_EQ(FilesBesideThePdf(), 0u);
}

TEST_F(Publish, TellsDrawingFromLayout)
{
    m_machine.MakeFile("a:b.dxf");
    EXPECT_EQ(ParseSetPart("plan.dxf"), (SetPart{"plan.dxf", {}}));
    EXPECT_EQ(ParseSetPart("plan.dxf:Ground floor"), (SetPart{"plan.dxf", "Ground floor"}));
    EXPECT_EQ(ParseSetPart(m_machine.In("a:b.dxf")), (SetPart{m_machine.In("a:b.dxf"), {}}));
    EXPECT_EQ(ParseSetPart(m_machine.In("a:b.dxf:Roof")), (SetPart{m_machine.In("a:b.dxf"), "Roof"}));
}

TEST_F(Publish, NeverOverwritesADrawing)
{
    fs::copy_file(m_machine.In("site.dxf"), m_machine.In("pdf/set.pdf"));
    EXPECT_EQ(Run({m_machine.In("house.dxf"), m_machine.In("pdf/set.pdf")}), 2);
    EXPECT_EQ(Contents(m_machine.In("pdf/set.pdf")), Contents(m_machine.In("site.dxf")));
}

} // namespace
} // namespace sm::app
