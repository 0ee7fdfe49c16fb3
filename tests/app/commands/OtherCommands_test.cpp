// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dispatch.h"
#include "app/Fixtures.h"
#include "commands/LayoutsCommand.h"
#include "doctor/Doctor.h"
#include "machine/LogBook.h"
#include "report/LayoutJson.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

class Commands : public testing::Test {
protected:
    int Run(const std::vector<std::string>& words)
    {
        m_out.str("");
        m_err.str("");
        return RunProgram(words, m_machine.Here(), m_out, m_err);
    }
    /// A log that was written so many seconds after 2001-09-09 01:46:40 UTC.
    void MakeLog(const std::string& name, const std::string& text, int seconds)
    {
        const std::filesystem::path file = m_machine.MakeFile(name, "Tarnwick Sheetmaker PDF\n" + text);
        const std::chrono::sys_seconds time{std::chrono::seconds(1'000'000'000 + seconds)};
        std::filesystem::last_write_time(file, std::chrono::file_clock::from_sys(time));
    }
    Machine m_machine;
    std::ostringstream m_out, m_err;
};

TEST_F(Commands, LogPrintsTheLastLog)
{
    EXPECT_EQ(Run({"log"}), 1);
    EXPECT_EQ(m_err.str(), "A Log file has not yet been created.\n");
    m_machine.MakeFile("home/.local/state/sheetmaker-pdf/SmPdfAcad.log", "PDF FILE SAVED\n");
    EXPECT_EQ(Run({"log"}), 0);
    EXPECT_EQ(m_out.str(), "PDF FILE SAVED\n");
}

TEST_F(Commands, LogListShowsTheNewestFirst)
{
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(Run({"log", "--list"}), 1);
    EXPECT_EQ(m_err.str(), "A Log file has not yet been created.\n");
    const std::string own = "home/.local/state/sheetmaker-pdf/SmPdfAcad.log";
    MakeLog(own, "OWN", 3);
    MakeLog("logs/plan.log", "PLAN", 1);
    MakeLog("logs/site.log", "SITE", 2);
    m_machine.MakeFile("logs/other.log", "of another program\n");
    MakeLog("night.txt", "NIGHT", 4);
    for (const char* place : {"gone", "logs", "night.txt", "logs"})
        LogBook(m_machine.Here()).Remember(m_machine.In(place));
    EXPECT_EQ(Run({"log", "--list"}), 0);
    const std::string at = "  2001-09-09 01:46:4";
    EXPECT_EQ(m_out.str(), "1" + at + "4  " + m_machine.In("night.txt") + "\n2" + at + "3  " + m_machine.In(own) +
                               "\n3" + at + "2  " + m_machine.In("logs/site.log") + "\n4" + at + "1  " +
                               m_machine.In("logs/plan.log") + "\n");
    for (const auto& [word, log] :
         std::initializer_list<std::pair<std::string, std::string>>{{"1", "NIGHT"},
                                                                    {"4", "PLAN"},
                                                                    {"plan", "PLAN"},
                                                                    {"plan.log", "PLAN"},
                                                                    {"sub/plan.dxf", "PLAN"},
                                                                    {m_machine.In("logs/site.log"), "SITE"},
                                                                    {"SmPdfAcad.log", "OWN"}}) {
        EXPECT_EQ(Run({"log", word}), 0) << word;
        EXPECT_EQ(m_out.str(), "Tarnwick Sheetmaker PDF\n" + log) << word;
    }
    EXPECT_EQ(Run({"log", "plam"}), 2);
    EXPECT_EQ(m_err.str(), "sheetmaker log: there is no log \"plam\"; did you mean \"plan\"?\n");
    EXPECT_EQ(Run({"log", "5"}), 2);
    EXPECT_EQ(m_err.str(), "sheetmaker log: there is no log \"5\"; \"sheetmaker log --list\" shows them\n");
}

TEST_F(Commands, LogListKeepsAHundredPlaces)
{
    for (int i = 0; i < 102; ++i)
        LogBook(m_machine.Here()).Remember(m_machine.In(std::to_string(i)));
    const std::string kept = Contents(m_machine.In("home/.local/state/sheetmaker-pdf/log-places.txt"));
    EXPECT_EQ(std::count(kept.begin(), kept.end(), '\n'), 100);
    EXPECT_TRUE(kept.starts_with(m_machine.In("2") + "\n")) << kept;
    EXPECT_TRUE(kept.ends_with("\n" + m_machine.In("101") + "\n")) << kept;
}

TEST_F(Commands, SettingsLastFromRunToRun)
{
    m_machine.MakeShare();
    EXPECT_EQ(Run({"get", "JobOptionsFile"}), 0);
    EXPECT_FALSE(std::filesystem::exists(m_machine.In("home")));
    EXPECT_EQ(Run({"set", "JobOptionsFile", "Print [1200 dpi]"}), 0);
    EXPECT_EQ(Run({"get", "JobOptionsFile"}), 0);
    EXPECT_EQ(m_out.str(), "Print [1200 dpi]\n");
    EXPECT_EQ(Run({"set", "JobOptionsFile", ""}), 0);
    EXPECT_EQ(Run({"get", "JobOptionsFile"}), 0);
    EXPECT_EQ(m_out.str(), "Graphics [600 dpi]\n");
    EXPECT_TRUE(std::filesystem::exists(m_machine.In("home/.config/sheetmaker-pdf/settings.sqlite")));
}

TEST_F(Commands, LayoutsSaysThatADrawingIsNotThere)
{
    EXPECT_EQ(Run({"layouts", m_machine.In("none.dxf")}), 1);
    EXPECT_EQ(m_out.str(), "");
    EXPECT_EQ(m_err.str().substr(0, 20), "sheetmaker layouts: ");
}

TEST_F(Commands, DoctorFindsAllThatIsNeeded)
{
    m_machine.MakeShare();
    m_machine.MakeProgram("gs", "echo 10.00.0");
    m_machine.MakeProgram("xdg-open", "true");
    m_machine.variables["DISPLAY"] = ":0";
    m_machine.MakeFile("home/.fonts/x.ttf");
    std::vector<std::string> states;
    for (const Finding& finding : Examine(m_machine.Here()))
        states.push_back(finding.what + (finding.state == Finding::State::Good ? " good" : " not good"));
    EXPECT_EQ(states,
              (std::vector<std::string>{"Ghostscript good", "PDF library good", "fonts good", "share folder good",
                                        "job options good", "settings good", "log folder good", "temporary folder good",
                                        "PDF viewer good", "windows not good", "DWG converter not good"}));
    EXPECT_EQ(Run({"doctor"}), 0);
}

TEST_F(Commands, DoctorNamesTheCommandThatMends)
{
    m_machine.MakeFile("home/.config/sheetmaker-pdf/settings.sqlite", "not a database, whatever its name may say, and "
                                                                      "long enough to be looked at for a header");
    EXPECT_EQ(Run({"doctor"}), 3);
    const std::string text = m_out.str();
    for (const char* line :
         {"optional  Ghostscript: not installed (PDF underlays, PostScript of other programs, and job options that "
          "turn "
          "colours or downsample pictures need it)\n          -> sudo apt-get install ghostscript\n",
          "MISSING   share folder: not found\n          -> install sheetmaker-pdf anew, or set SHEETMAKER_PDF_SHARE "
          "to its share folder\n",
          "MISSING   job options: none installed\n          -> install sheetmaker-pdf anew\n",
          "optional  PDF viewer: xdg-open is not installed (--open needs it)\n          -> sudo apt-get install "
          "xdg-utils\n",
          "optional  DWG converter: the script to-dxf.mjs is missing (needed for DWG files older than R9 alone)\n      "
          "    "
          "-> "
          "install sheetmaker-pdf anew\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "in\n" << text;
    EXPECT_NE(text.find("MISSING   settings: The settings file "), std::string::npos) << text;
}

TEST_F(Commands, DoctorLooksAtSettingsThatAreThere)
{
    m_machine.MakeShare();
    ASSERT_EQ(Run({"set", "OpenInViewer", "0"}), 0);
    EXPECT_EQ(Examine(m_machine.Here())[5].detail, m_machine.In("home/.config/sheetmaker-pdf/settings.sqlite"));
    EXPECT_EQ(Examine(m_machine.Here())[5].state, Finding::State::Good);
}

TEST_F(Commands, DoctorShowsTheDwgConverter)
{
    m_machine.MakeShare();
    m_machine.MakeFile("share/dwg/to-dxf.mjs");
    EXPECT_EQ(Examine(m_machine.Here()).back().remedy,
              "sudo apt-get install nodejs npm && '" + m_machine.In("share/dwg/install") + "'");
    m_machine.MakeProgram("node", "true");
    EXPECT_EQ(Examine(m_machine.Here()).back().remedy, "'" + m_machine.In("share/dwg/install") + "'");
    m_machine.MakeFile("home/.cache/sheetmaker-pdf/dwg/node_modules/@mlightcad/libredwg-web/wasm/libredwg-web.js");
    EXPECT_EQ(Examine(m_machine.Here()).back().state, Finding::State::Good);
    EXPECT_EQ(Run({"set", "DwgConverter", "my-own {in} {out}"}), 0);
    EXPECT_EQ(Examine(m_machine.Here()).back().detail,
              "the program of \"my-own {in} {out}\" can't be found (needed for DWG files older than R9 alone)");
    m_machine.MakeProgram("my-own", "true");
    EXPECT_EQ(Examine(m_machine.Here()).back().detail, "your own command, " + m_machine.In("bin/my-own"));
    EXPECT_EQ(Run({"doctor", "--dwg-converter", "oda"}), 0);
    EXPECT_NE(m_out.str().find("optional  DWG converter: ODAFileConverter is not installed"), std::string::npos);
}

TEST_F(Commands, DoctorSeesAShareFolderWithoutItsParts)
{
    m_machine.MakeFile("share/Settings/A.joboptions");
    const auto findings = Examine(m_machine.Here());
    EXPECT_EQ(findings[3].what, "share folder");
    EXPECT_EQ(findings[3].state, Finding::State::Missing);
    EXPECT_EQ(findings[3].detail, m_machine.In("share/Drivers/ps8.hdi") + " is missing");
}

cadhost::LayoutFacts Facts(const char* name, bool active, double width, double height, std::uint64_t entities)
{
    cadhost::LayoutFacts facts;
    facts.name = name;
    facts.active = active;
    facts.isModel = std::string(name) == "Model";
    facts.tabOrder = facts.isModel ? 0 : 1;
    facts.paperWidth = width;
    facts.paperHeight = height;
    facts.mediaName = "ISO_A3_(420.00_x_297.00_MM)";
    facts.configName = "None";
    facts.styleSheet = "mono.ctb";
    facts.plotArea = "Layout";
    facts.scale = "1:1";
    facts.entities = entities;
    facts.viewports = 2;
    return facts;
}

TEST(LayoutTable, AlignsItsColumns)
{
    EXPECT_EQ(LayoutTable({Facts("Model", false, 0, 0, 1200), Facts("\xc3\x9c"
                                                                    "bersicht",
                                                                    true, 420, 297.5, 7)}),
              "  LAYOUT     PAPER           AREA    SCALE  VIEWPORTS  ENTITIES\n"
              "  Model      none            Layout  1:1    2          1200\n"
              "* \xc3\x9c"
              "bersicht  420 x 297.5 mm  Layout  1:1    2          7\n");
}

TEST(LayoutJson, HasEveryFact)
{
    EXPECT_EQ(LayoutJson({Facts("Sheet", true, 420, 297, 7)}), R"json([
  {
    "name": "Sheet",
    "model": false,
    "active": true,
    "tabOrder": 1,
    "paperWidth": 420.0,
    "paperHeight": 297.0,
    "media": "ISO_A3_(420.00_x_297.00_MM)",
    "device": "None",
    "styleTable": "mono.ctb",
    "plotArea": "Layout",
    "scale": "1:1",
    "viewports": 2,
    "entities": 7
  }
]
)json");
}

} // namespace
} // namespace sm::app
