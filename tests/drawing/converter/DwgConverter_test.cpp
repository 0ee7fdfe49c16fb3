// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files through converters that behave well and badly: scripts of a few lines that stand in for one.
#include "drawing/Drawing.h"
#include "drawing/DwgConverter.h"
#include "drawing/Finding.h"
#include "drawing/TempFolder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

namespace sm::drawing::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDxf = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n5\n21\n5\n0\nENDSEC\n0\nEOF\n";
const std::string kDwg = std::string("AC1003\0\0\0\0\0", 11) + "the rest of a DWG";

class Converted : public ::testing::Test {
protected:
    Converted()
    {
        fs::create_directories(m_folder.Path("bin"));
        fs::create_directories(m_folder.Path("work"));
        m_dwg = m_folder.Write("plan.dwg", kDwg);
        static_cast<void>(m_folder.Write("good.dxf", kDxf));
        m_options.workFolder = m_folder.Path("work");
        m_options.searchPath = m_folder.Path("bin");
        m_options.seconds = 20;
    }
    std::string Program(const std::string& name, const std::string& body) const
    {
        const std::string path = m_folder.Write("bin/" + name, "#!/bin/sh\n" + body + "\n");
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }
    /// Opens the DWG with a converter of that body; $1 is the DWG, $2 the DXF. "" when it opens.
    std::string ErrorWith(const std::string& body)
    {
        m_options.converter =
            "'" + Program("convert", "good='" + m_folder.Path("good.dxf") + "'\n" + body) + "' {in} {out}";
        return Error();
    }
    [[nodiscard]] std::string Error() const
    {
        try {
            Drawing::Open(m_dwg, m_options);
        } catch (const DrawingError& error) {
            return error.what();
        }
        return {};
    }
    /// Of the work folder; nothing may be left.
    [[nodiscard]] std::vector<std::string> Left() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_options.workFolder))
            names.push_back(entry.path().filename().string());
        return names;
    }

    TempFolder m_folder;
    std::string m_dwg;
    DwgOptions m_options;
};

TEST_F(Converted, IsReadLikeADxfUnderItsOwnName)
{
    EXPECT_EQ(ErrorWith("cp \"$good\" \"$2\""), "");
    const auto drawing = Drawing::Open(m_dwg, m_options);
    EXPECT_EQ(drawing->Path(), m_dwg);
    EXPECT_EQ(drawing->EntityCount(), 1U);
    EXPECT_FALSE(drawing->Modified());
    EXPECT_THAT(Left(), ::testing::IsEmpty());
}

TEST_F(Converted, ABadConverterGivesOneLineAndLeavesNothing)
{
    struct Row {
        const char* name;
        const char* body;
        const char* error; ///< behind the file's name
    };
    const char* const remedy = "; the file may be damaged: save the drawing again, or as DXF";
    const Row rows[] = {
        {"says nothing", "exit 0", "the DWG converter (convert) gave no DXF"},
        {"empty output", ": > \"$2\"", "the DWG converter (convert) gave no DXF"},
        {"a folder", "mkdir \"$2\"", "the DWG converter (convert) gave no DXF"},
        {"a pipe", "mkfifo \"$2\"", "the DWG converter (convert) gave no DXF"},
        {"garbage", "head -c 100000 /dev/urandom > \"$2\"", "the DWG converter (convert) gave an incomplete DXF"},
        {"half a DXF", "head -c 60 \"$good\" > \"$2\"", "the DWG converter (convert) gave an incomplete DXF"},
        {"no entities", "printf '0\\nEOF\\n' > \"$2\"", "the DWG converter (convert) gave an incomplete DXF"},
        {"refuses", "echo first >&2; echo 'no good\t\001file' >&2; exit 3",
         "the DWG converter (convert) can't read this DWG (no good  file)"},
        {"refuses silently", "exit 1", "the DWG converter (convert) can't read this DWG"},
        {"refuses although it wrote", "cp \"$good\" \"$2\"; exit 1", "the DWG converter (convert) can't read this DWG"},
        {"crashes", "kill -SEGV $$", "the DWG converter (convert) crashed (signal 11)"},
        {"ends itself", "kill -KILL $$", "the DWG converter (convert) crashed (signal 9)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ErrorWith(row.body), m_dwg + ": " + row.error + remedy) << row.name;
        EXPECT_THAT(Left(), ::testing::IsEmpty()) << row.name;
    }
}

TEST_F(Converted, OneThatHangsIsStoppedWithAllItsChildren)
{
    m_options.seconds = 1;
    const std::string pids = m_folder.Path("pids");
    EXPECT_EQ(ErrorWith("sleep 1000 & echo $! > '" + pids + "'; (trap '' TERM HUP INT; sleep 1001) & wait"),
              m_dwg + ": the DWG converter (convert) was stopped after 1 seconds; the file may be damaged: save the "
                      "drawing again, or as DXF");
    EXPECT_THAT(Left(), ::testing::IsEmpty());
    int child = 0;
    std::ifstream(pids) >> child;
    ASSERT_GT(child, 1);
    // Whoever adopts it has to bury it.
    for (int i = 0; i < 200 && kill(child, 0) == 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_NE(kill(child, 0), 0);
}

TEST_F(Converted, ChildrenThatStayBehindAreEnded)
{
    const std::string pids = m_folder.Path("pids");
    EXPECT_EQ(ErrorWith("cp \"$good\" \"$2\"; sleep 1000 & echo $! > '" + pids + "'"), "");
    int child = 0;
    std::ifstream(pids) >> child;
    ASSERT_GT(child, 1);
    for (int i = 0; i < 200 && kill(child, 0) == 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_NE(kill(child, 0), 0);
}

TEST_F(Converted, MuchOutputAndAnEmptyInputDoNoHarm)
{
    EXPECT_EQ(ErrorWith("head -c 5000000 /dev/zero; yes no | head -c 5000000 >&2; cp \"$good\" \"$2\""), "");
    EXPECT_EQ(ErrorWith("if read line; then exit 1; fi; cp \"$good\" \"$2\""), "");
    EXPECT_THAT(Left(), ::testing::IsEmpty());
}

TEST_F(Converted, TheDwgItselfIsOutOfReach)
{
    EXPECT_EQ(ErrorWith("echo spoilt > \"$1\"; cp \"$good\" \"$2\""), "");
    EXPECT_EQ(m_folder.Read("plan.dwg"), kDwg);
    EXPECT_EQ(ErrorWith("cmp -s \"$1\" '" + m_dwg + "' && cp \"$good\" \"$2\""), "")
        << "the converter gets a whole copy";
}

TEST_F(Converted, AFileThatGrowsTooLargeIsCutOff)
{
    EXPECT_EQ(ErrorWith("ulimit -f | grep -qv unlimited || exit 5; cp \"$good\" \"$2\""), "");
}

TEST_F(Converted, WhatTheConverterLostIsReported)
{
    m_options.converter = "'" +
                          Program("convert", "cp '" + m_folder.Path("good.dxf") +
                                                 "' \"$2\"; echo 'lost: ACAD_TABLE 2'; echo 'lost: "
                                                 "ACAD_PROXY_ENTITY 3'; echo lost: CORRECTIONS") +
                          "' {in} {out}";
    const auto drawing = Drawing::Open(m_dwg, m_options);
    std::vector<std::string> found;
    for (const Finding& finding : drawing->Findings())
        if (finding.code >= 700)
            found.push_back(std::to_string(finding.count) + (finding.contentLost ? " lost: " : " ") + finding.text);
    EXPECT_THAT(found, ::testing::ElementsAre(
                           "2 lost: the DWG converter lost a table; save the drawing as DXF to see it",
                           "3 lost: the DWG converter lost a proxy entity; save the drawing as DXF to see it",
                           "1 lost: the DWG converter's mistakes could not be corrected; layers may be wrong"));
}

TEST_F(Converted, WithoutAConverterOneLineSaysHowToGetOne)
{
    m_options.scriptFolder = m_folder.Path("share");
    EXPECT_EQ(Error(), m_dwg + ": this is a DWG of release R2.6, and the script to-dxf.mjs is missing; install "
                               "sheetmaker-pdf anew; or save the drawing as DXF");
    fs::create_directories(m_folder.Path("share"));
    static_cast<void>(m_folder.Write("share/to-dxf.mjs", ""));
    EXPECT_EQ(Error(), m_dwg +
                           ": this is a DWG of release R2.6, and no DWG converter is installed; run: sudo apt-get "
                           "install nodejs npm && '" +
                           m_folder.Path("share/install") + "'; or save the drawing as DXF");
    Program("node", "exit 1");
    EXPECT_EQ(Error(), m_dwg + ": this is a DWG of release R2.6, and no DWG converter is installed; run: '" +
                           m_folder.Path("share/install") + "'; or save the drawing as DXF");
}

TEST_F(Converted, TheMagicDecidesNotTheName)
{
    static_cast<void>(m_folder.Write("page.dwg", "<!DOCTYPE html><html></html>"));
    m_dwg = m_folder.Path("page.dwg");
    EXPECT_EQ(Error(),
              m_dwg + ": the first bytes are those of an HTML or XML page, not of a drawing; name a DXF or DWG file");
    static_cast<void>(m_folder.Write("really.dwg", kDxf));
    m_dwg = m_folder.Path("really.dwg");
    EXPECT_EQ(Error(), "");
}

/// A dwg2dxf that answers "--version" with `version` and converts else.
std::string Dwg2Dxf(const std::string& version, const std::string& good)
{
    return "if [ \"$1\" = --version ]; then echo '" + version + "'; exit 0; fi\n[ \"$1 $2\" = '-y -o' ] && cp '" +
           good + "' \"$3\"";
}

TEST_F(Converted, OnlyLibreDwgsOwnDwg2DxfIsTaken)
{
    Program("dwg2dxf", Dwg2Dxf("some tool 3.1", m_folder.Path("good.dxf")));
    EXPECT_FALSE(ExamineDwgConverter(m_options).ready);
    Program("dwg2dxf", Dwg2Dxf("dwg2dxf 0.13.3", m_folder.Path("good.dxf")));
    EXPECT_EQ(ExamineDwgConverter(m_options).what, "dwg2dxf 0.13.3");
    EXPECT_EQ(Error(), "");
    m_options.converter = "node";
    EXPECT_FALSE(ExamineDwgConverter(m_options).ready) << "whoever names one gets no other";
}

TEST_F(Converted, TheOdaConverterIsTakenOnlyByName)
{
    Program("ODAFileConverter",
            "[ \"$3 $4 $5 $6 $7\" = 'ACAD2018 DXF 0 1 *.dwg' ] && [ -f \"$1/drawing.dwg\" ] && cp '" +
                m_folder.Path("good.dxf") + "' \"$2/drawing.dxf\"");
    EXPECT_FALSE(ExamineDwgConverter(m_options).ready);
    m_options.converter = "oda";
    EXPECT_TRUE(ExamineDwgConverter(m_options).ready);
    EXPECT_EQ(Error(), "");
}

TEST_F(Converted, ACommandIsNeverGivenToAShell)
{
    const std::string program = Program("convert", "echo \"$3 $4 $5\" > '" + m_folder.Path("words") + "'; cp '" +
                                                       m_folder.Path("good.dxf") + "' \"$2\"");
    m_options.converter = program + " {in} {out} '$(touch x); a  b' \"it's\" --to={in}x";
    EXPECT_EQ(Error(), "");
    EXPECT_THAT(m_folder.Read("words"), ::testing::StartsWith("$(touch x); a  b it's --to=/"));
    EXPECT_THAT(m_folder.Read("words"), ::testing::EndsWith("/in/drawing.dwgx\n"));
}

TEST(DwgConverterChoice, SaysWhatIsWrongWithIt)
{
    struct Row {
        const char* converter;
        const char* error;
    };
    for (const Row& row : {Row{"", ""},
                           {"node", ""},
                           {"dwg2dxf", ""},
                           {"oda", ""},
                           {"conv {in} {out}", ""},
                           {"conv --from={in} '--to {out}'", ""},
                           {"conv {in}", "is none of node, dwg2dxf, oda and no command with {in} and {out}"},
                           {"other", "is none of node, dwg2dxf, oda and no command with {in} and {out}"},
                           {"'conv {in} {out}", "has a quote that isn't closed"}})
        EXPECT_EQ(DwgConverterError(row.converter), row.error) << row.converter;
}

} // namespace
} // namespace sm::drawing::testing
