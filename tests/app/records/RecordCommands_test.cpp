// SPDX-License-Identifier: GPL-3.0-or-later
// "stamp", "attach" and "sign" on a real drawing: what they say, what they keep, and what they refuse.
#include "Dispatch.h"
#include "app/Fixtures.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

class Records : public testing::Test {
protected:
    void SetUp() override
    {
        fs::copy_file(SM_SOURCE_DIR "/samples/site.dxf", Drawing());
        m_machine.MakeShare();
    }
    [[nodiscard]] std::string Drawing() const { return m_machine.In("site.dxf"); }

    /// Command, the drawing, the other words.
    int Run(const std::string& command, const std::vector<std::string>& words)
    {
        std::vector<std::string> all{command, Drawing()};
        all.insert(all.end(), words.begin(), words.end());
        m_out.str("");
        m_err.str("");
        return RunProgram(all, m_machine.Here(), m_out, m_err);
    }
    [[nodiscard]] std::string Out() const { return WithoutFolder(m_out.str()); }
    [[nodiscard]] std::string Err() const { return WithoutFolder(m_err.str()); }
    [[nodiscard]] std::string WithoutFolder(std::string text) const
    {
        const std::string folder = m_machine.Root().string() + "/";
        for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder))
            text.erase(at, folder.size());
        return text;
    }

    Machine m_machine;
    std::ostringstream m_out, m_err;
};

TEST_F(Records, StampIsKeptShownChangedAndRemoved)
{
    const std::string before = Contents(Drawing());
    EXPECT_EQ(Run("stamp", {"list"}), 0);
    EXPECT_EQ(Out(), "site.dxf has no stamp\n");
    EXPECT_EQ(Run("stamp", {"--text", "2", "--at", "10,-10.5"}), 0);
    EXPECT_EQ(Out(),
              "site.dxf: stamp 2 \"FOR REVIEW\", Helvetica, 24 pt, #FF0000, left, at 10,-10.5, on All Layouts\n");
    EXPECT_EQ(Contents(Drawing() + ".bak"), before);
    EXPECT_EQ(Run("stamp", {"change", "--size", "36", "--justify", "right", "--layout", "site"}), 0);
    EXPECT_EQ(Run("stamp", {"list"}), 0);
    EXPECT_EQ(Out(), "stamp 2 \"FOR REVIEW\", Helvetica, 36 pt, #FF0000, right, at 10,-10.5, on Site\n");
    EXPECT_EQ(Run("stamp", {"--at", "1,2"}), 0);
    EXPECT_EQ(Out(), "site.dxf: stamp 1 \"DRAFT PRINT\", Helvetica, 24 pt, #FF0000, left, at 1,2, on All Layouts (in "
                     "place of the former one)\n");
    EXPECT_EQ(Run("stamp", {"remove"}), 0);
    EXPECT_EQ(Run("stamp", {"list"}), 0);
    EXPECT_EQ(Out(), "site.dxf has no stamp\n");
    EXPECT_EQ(Err(), "");
}

TEST_F(Records, NewStampTextGoesIntoTheList)
{
    EXPECT_EQ(Run("stamp", {"--text", "AS BUILT", "--at", "1,2"}), 0);
    EXPECT_EQ(Out(), "\"AS BUILT\" is entry 11 of your stamp list now (setting Stamp11)\n"
                     "site.dxf: stamp 11 \"AS BUILT\", Helvetica, 24 pt, #FF0000, left, at 1,2, on All Layouts\n");
    EXPECT_EQ(RunProgram({"get", "Stamp11"}, m_machine.Here(), m_out, m_err), 0);
    EXPECT_EQ(Out().substr(Out().size() - 9), "AS BUILT\n");
}

TEST_F(Records, DecimalsLastUnderEveryLocale)
{
    m_machine.variables["LC_ALL"] = "de_DE.UTF-8";
    EXPECT_EQ(Run("stamp", {"--at", "8.5,0.25"}), 0);
    EXPECT_EQ(Run("stamp", {"list"}), 0);
    EXPECT_EQ(Out(), "stamp 1 \"DRAFT PRINT\", Helvetica, 24 pt, #FF0000, left, at 8.5,0.25, on All Layouts\n");
}

TEST_F(Records, AttachmentsAreAddedChangedAndRemoved)
{
    const std::string first = m_machine.MakeFile("a.txt", "a"), second = m_machine.MakeFile("b.txt", "b");
    EXPECT_EQ(Run("attach", {"add", first, "--at", "1,2"}), 0);
    EXPECT_EQ(Out(), "site.dxf: attached a.txt at 1,2 on Site\n");
    EXPECT_EQ(Err(), "\"Site\" is taken, the one layout that becomes a page by itself; --layout names another\n");
    EXPECT_EQ(Run("attach", {"add", second, "--at", "3,4", "--layout", "MODEL"}), 0);
    EXPECT_EQ(Run("attach", {"list"}), 0);
    EXPECT_EQ(Out(), "1  a.txt at 1,2 on Site\n2  b.txt at 3,4 on Model\n");
    EXPECT_EQ(Run("attach", {"change", "a.txt", "--file", second, "--at", "5,6"}), 0);
    EXPECT_EQ(Out(), "site.dxf: attached b.txt at 5,6 on Site\n");
    EXPECT_EQ(Run("attach", {"remove", "b.txt"}), 2);
    EXPECT_EQ(Err(), "sheetmaker attach: site.dxf has several attachments \"b.txt\"; name the one that is meant by its "
                     "number, as \"list\" shows it\n");
    EXPECT_EQ(Run("attach", {"remove", "1"}), 0);
    EXPECT_EQ(Run("attach", {"remove", "b.txt"}), 0);
    EXPECT_EQ(Run("attach", {"list"}), 0);
    EXPECT_EQ(Out(), "site.dxf has no attachments\n");
}

TEST_F(Records, SignatureFieldsAreAddedChangedAndRemoved)
{
    EXPECT_EQ(Run("sign", {"add", " Approval ", "--label", "Engineer", "--rect", "60,30,10,5"}), 0);
    EXPECT_EQ(Out(), "site.dxf: added signature field \"Approval\", \"Engineer\", 60,30,10,5 on Site\n");
    EXPECT_EQ(Err(), "\"Site\" is taken, the one layout that becomes a page by itself; --layout names another\n");
    EXPECT_EQ(Run("sign", {"add", "Approval", "--rect", "1,2,3,4"}), 2);
    EXPECT_EQ(Err(), "sheetmaker sign: site.dxf has a signature field \"Approval\" already; \"sign DRAWING change\" "
                     "changes it\n");
    EXPECT_EQ(Run("sign", {"change", "1", "--name", "Release", "--layout", "Site"}), 0);
    EXPECT_EQ(Run("sign", {"list"}), 0);
    EXPECT_EQ(Out(), "1  signature field \"Release\", \"Engineer\", 60,30,10,5 on Site\n");
    EXPECT_EQ(Run("sign", {"remove", "Releas"}), 2);
    EXPECT_EQ(Err(), "sheetmaker sign: site.dxf has no signature field \"Releas\"; did you mean \"Release\"?\n");
    EXPECT_EQ(Run("sign", {"remove", "Release"}), 0);
    EXPECT_EQ(Run("sign", {"list"}), 0);
    EXPECT_EQ(Out(), "site.dxf has no signature fields\n");
}

struct RecordRefusalRow {
    const char* name;
    const char* command;
    std::vector<std::string> words;
    const char* error;
};

const RecordRefusalRow kRefusals[] = {
    {"NoPoint", "stamp", {}, "sheetmaker stamp: --at X,Y is needed: where the stamp stands, in drawing units\n"},
    {"NoStamp",
     "stamp",
     {"change", "--size", "9"},
     "sheetmaker stamp: site.dxf has no stamp; \"stamp DRAWING --text N|TEXT --at X,Y\" adds one\n"},
    {"IdleOption", "stamp", {"list", "--size", "9"}, "sheetmaker stamp: list and remove take no options\n"},
    {"NoChange", "stamp", {"change"}, "sheetmaker stamp: change takes at least one of the options\n"},
    {"Layout",
     "stamp",
     {"--at", "1,2", "--layout", "Sitte"},
     "sheetmaker stamp: site.dxf has no layout \"Sitte\"; did you mean \"Site\"?\n"},
    {"UnlikeLayout",
     "attach",
     {"add", SM_SOURCE_DIR "/LICENSE", "--at", "1,2", "--layout", "Roof"},
     "sheetmaker attach: site.dxf has no layout \"Roof\"; it has \"Model\", \"Site\"\n"},
    {"MissingFile",
     "attach",
     {"add", "nowhere.txt", "--at", "1,2"},
     "sheetmaker attach: there is no file nowhere.txt\n"},
    {"Folder", "attach", {"add", "/usr", "--at", "1,2"}, "sheetmaker attach: /usr is no plain file\n"},
    {"NoFile", "attach", {"add", "--at", "1,2"}, "sheetmaker attach: FILE is required\n"},
    {"NoAttachment",
     "attach",
     {"remove", "1"},
     "sheetmaker attach: site.dxf has no attachment \"1\"; it has none at all\n"},
    {"ListWithName", "sign", {"list", "A"}, "sheetmaker sign: list shows all; it takes no name\n"},
    {"BlankName", "sign", {"add", " ", "--rect", "1,2,3,4"}, "sheetmaker sign: NAME is required\n"},
    {"NoBox",
     "sign",
     {"add", "A"},
     "sheetmaker sign: --rect X1,Y1,X2,Y2 is needed: the field's rectangle, in drawing units\n"},
    {"NameWithAdd",
     "sign",
     {"add", "A", "--rect", "1,2,3,4", "--name", "B"},
     "sheetmaker sign: --name goes with change\n"},
    {"Control", "sign", {"add", "A\nB", "--rect", "1,2,3,4"}, "sheetmaker sign: the name holds a control character\n"},
};

TEST_F(Records, RefusesBadInputAndLeavesTheDrawingAlone)
{
    const std::string before = Contents(Drawing());
    for (const RecordRefusalRow& row : kRefusals) {
        EXPECT_EQ(Run(row.command, row.words), 2) << row.name;
        EXPECT_EQ(Err(), row.error) << row.name;
        EXPECT_EQ(Out(), "") << row.name;
    }
    EXPECT_EQ(Contents(Drawing()), before);
    EXPECT_FALSE(fs::exists(Drawing() + ".bak"));
}

TEST_F(Records, OfADrawingThatCanHoldNoneAreKeptBesideIt)
{
    const std::string old =
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n"
        "8\n0\n10\n0.0\n20\n0.0\n11\n5.0\n21\n5.0\n0\nENDSEC\n0\nEOF\n";
    m_machine.MakeFile("site.dxf", old);
    EXPECT_EQ(Run("sign", {"add", "A", "--rect", "1,2,3,4"}), 0);
    EXPECT_EQ(Err(), "note: kept in site.dxf.sheetmaker, since the drawing's release can't hold it\n");
    EXPECT_EQ(Contents(Drawing()), old);
    EXPECT_EQ(Run("sign", {"list"}), 0);
    EXPECT_NE(Out().find("A"), std::string::npos);
    EXPECT_EQ(Run("sign", {"remove", "A"}), 0);
    EXPECT_EQ(Contents(Drawing()), old);
}

TEST_F(Records, OfAnOldDwgNeedAConverter)
{
    const std::string dwg = m_machine.MakeFile("site.dwg", "AC1003 and more");
    m_machine.MakeFile("share/dwg/to-dxf.mjs");
    for (const char* command : {"stamp", "layouts", "convert"}) {
        m_err.str("");
        m_machine.MakeProgram("gs", "true");
        std::vector<std::string> words{command, dwg};
        if (words[0] == "stamp")
            words.insert(words.end(), {"--at", "1,2"});
        EXPECT_EQ(RunProgram(words, m_machine.Here(), m_out, m_err), 3) << command;
        if (words[0] != "convert") { // whose lines go to the process's own stderr
            EXPECT_EQ(Err(),
                      "sheetmaker " + words[0] +
                          ": site.dwg: this is a DWG of release R2.6, and no DWG converter is installed; run: sudo "
                          "apt-get install nodejs npm && 'share/dwg/install'; or save the drawing as DXF\n");
        }
    }
}

TEST_F(Records, OfADwgStandBesideIt)
{
    const std::string dwg = m_machine.MakeFile("site.dwg", "AC1003 and more");
    m_machine.MakeProgram("conv", "cp '" + Drawing() + "' \"$2\"");
    const auto run = [&](std::vector<std::string> words) {
        words.insert(words.end(), {"--dwg-converter", m_machine.In("bin/conv") + " {in} {out}"});
        m_out.str("");
        m_err.str("");
        return RunProgram(words, m_machine.Here(), m_out, m_err);
    };
    EXPECT_EQ(run({"stamp", dwg, "--text", "2", "--at", "10,10"}), 0) << m_err.str();
    EXPECT_EQ(Contents(dwg), "AC1003 and more");
    EXPECT_EQ(run({"stamp", dwg, "list"}), 0);
    EXPECT_EQ(Out(), "stamp 2 \"FOR REVIEW\", Helvetica, 24 pt, #FF0000, left, at 10,10, on All Layouts\n");
    EXPECT_EQ(run({"sign", dwg, "add", "Approval", "--rect", "1,1,5,5"}), 0) << m_err.str();
    EXPECT_TRUE(fs::exists(dwg + ".sheetmaker"));
    EXPECT_EQ(run({"stamp", dwg, "remove"}), 0) << m_err.str();
    EXPECT_EQ(run({"stamp", dwg, "list"}), 0);
    EXPECT_EQ(Out(), "site.dwg has no stamp\n");
}

} // namespace
} // namespace sm::app
