// SPDX-License-Identifier: GPL-3.0-or-later
// The records of a DWG, in the file beside it.
#include "drawing/Drawing.h"
#include "drawing/DwgConverter.h"
#include "drawing/TempFolder.h"
#include "drawing/Told.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace sm::drawing::testing {
namespace {

using Items = std::vector<XDataItem>;

/// A DWG whose converter gives a drawing with one record of its own.
class DwgRecords : public ::testing::Test {
protected:
    DwgRecords()
    {
        const std::string dxf = m_folder.Write(
            "plan.dxf",
            "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n"
            "0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n1001\nTWSM\n1000\nown\n0\nENDSEC\n0\nEOF\n");
        m_dwg = m_folder.Write("plan.dwg", kDwg);
        const std::string script = m_folder.Write("convert", "#!/bin/sh\ncp '" + dxf + "' \"$2\"\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        m_options.converter = "'" + script + "' {in} {out}";
    }
    [[nodiscard]] std::unique_ptr<Drawing> Open() const { return Drawing::Open(m_dwg, m_options); }

    inline static const std::string kDwg = "AC1032 and more";
    TempFolder m_folder;
    std::string m_dwg;
    DwgOptions m_options;
};

TEST_F(DwgRecords, AreKeptBesideTheDwg)
{
    const auto drawing = Open();
    EXPECT_EQ(drawing->RecordOf("TWSM"), (Items{{1001, "TWSM"}, {1000, "own"}}));
    drawing->SetRecord("TWSI", {{1000, "Größe \"3\"\n図"}, {1070, "5"}});
    EXPECT_TRUE(drawing->Modified());
    drawing->Save(true);
    EXPECT_FALSE(drawing->Modified());
    EXPECT_EQ(m_folder.Read("plan.dwg"), kDwg);
    EXPECT_EQ(m_folder.Read("plan.dwg.sheetmaker"), R"({
  "format": "sheetmaker-pdf records",
  "version": 1,
  "drawing": "plan.dwg",
  "records": {
    "TWSI": [
      [1001, "TWSI"],
      [1000, "Größe \"3\"\n図"],
      [1070, "5"]]
  }
}
)");
    const auto again = Open();
    EXPECT_EQ(again->RecordOf("twsi"), (Items{{1001, "TWSI"}, {1000, "Größe \"3\"\n図"}, {1070, "5"}}));
    EXPECT_EQ(again->RecordOf("TWSM"), (Items{{1001, "TWSM"}, {1000, "own"}}));
}

TEST_F(DwgRecords, StandOverThoseOfTheDwg)
{
    const auto drawing = Open();
    drawing->SetRecord("TWSM", {});
    drawing->Save(true);
    EXPECT_EQ(Open()->RecordOf("TWSM"), Items{});
    const auto again = Open();
    again->SetRecord("twsm", {{1000, "mine"}});
    again->Save(true);
    EXPECT_EQ(Open()->RecordOf("TWSM"), (Items{{1001, "twsm"}, {1000, "mine"}}));
    EXPECT_THAT(m_folder.Names(), ::testing::ElementsAre("convert", "plan.dwg", "plan.dwg.sheetmaker",
                                                         "plan.dwg.sheetmaker.bak", "plan.dxf"));
    EXPECT_THAT(m_folder.Read("plan.dwg.sheetmaker.bak"), ::testing::HasSubstr("\"TWSM\": []"));
}

TEST_F(DwgRecords, NothingIsWrittenWithoutAChange)
{
    const auto drawing = Open();
    drawing->SetRecord("TWSM", {{1000, "own"}});
    drawing->Save(true);
    EXPECT_THAT(m_folder.Names(), ::testing::ElementsAre("convert", "plan.dwg", "plan.dxf"));
}

TEST_F(DwgRecords, ANewFileHasTheUsualRights)
{
    const mode_t former = umask(027);
    const auto drawing = Open();
    drawing->SetRecord("A", {{1000, "x"}});
    drawing->Save(false);
    umask(former);
    struct stat state {};
    ASSERT_EQ(stat(m_folder.Path("plan.dwg.sheetmaker").c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0640U);
}

TEST_F(DwgRecords, SomebodyElsesChangesAreNotLost)
{
    const auto mine = Open(), theirs = Open();
    theirs->SetRecord("B", {{1000, "theirs"}});
    theirs->Save(true);
    mine->SetRecord("A", {{1000, "mine"}});
    EXPECT_EQ(
        ErrorOf([&] { mine->Save(true); }),
        m_dwg + ".sheetmaker: somebody else changed the file since it was opened; open it again and repeat the change");
    EXPECT_EQ(Open()->RecordOf("B"), (Items{{1001, "B"}, {1000, "theirs"}}));
}

TEST_F(DwgRecords, AFileThatCantBeUnderstoodIsNotIgnored)
{
    for (const char* text :
         {"not JSON", "{}", "[]", "{\"format\": \"other\", \"version\": 1, \"records\": {}}",
          "{\"format\": \"sheetmaker-pdf records\", \"version\": 2, \"records\": {}}",
          "{\"format\": \"sheetmaker-pdf records\", \"version\": 1, \"records\": {\"A\": [[5, \"x\"]]}}",
          "{\"format\": \"sheetmaker-pdf records\", \"version\": 1e300, \"records\": {}}",
          "{\"format\": \"sheetmaker-pdf records\", \"version\": 1, \"records\": {\"A\": [[1e300, \"x\"]]}}",
          "{\"format\": \"sheetmaker-pdf records\", \"version\": 1, \"records\": {\"A\": [[1000]]}}"}) {
        static_cast<void>(m_folder.Write("plan.dwg.sheetmaker", text));
        const std::string error = ErrorOf([&] { static_cast<void>(Open()); });
        EXPECT_THAT(error, ::testing::StartsWith(m_dwg + ".sheetmaker: the drawing's records can't be read (")) << text;
        EXPECT_THAT(error,
                    ::testing::EndsWith("); mend the file, or remove it to go on without its stamps, attachments and "
                                        "fields"))
            << text;
    }
}

} // namespace
} // namespace sm::drawing::testing
