// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/BinaryDxf.h"
#include "drawing/DxfText.h"
#include "drawing/RecordsPlace.h"
#include "drawing/TempFolder.h"
#include "drawing/Told.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

using Items = std::vector<XDataItem>;

/// A drawing with a dictionary; from R2000 on table entries name their owner.
std::string RecordText(const std::string& version, const std::string& lineEnd, const std::string& xdata = "")
{
    const std::string owner = version >= "AC1015" ? "330\n9\n" : "";
    return DxfText(lineEnd)
        .Section("HEADER")
        .Variable("$ACADVER", 1, version)
        .Variable("$DWGCODEPAGE", 3, "ANSI_1252")
        .Variable("$CMLSTYLE", 2, "Standard")
        .Variable("$HANDSEED", 5, "40")
        .EndSection()
        .Section("TABLES")
        .Raw("0\nTABLE\n2\nAPPID\n5\n9\n70\n1\n0\nAPPID\n5\n12\n" + owner + "2\nACAD\n70\n0\n0\nENDTAB\n")
        .EndSection()
        .Section("OBJECTS")
        .Raw("0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n3\nACAD_GROUP\n350\nD\n" + xdata +
             "0\nDICTIONARY\n5\nD\n330\nC\n")
        .EndSection()
        .End()
        .Text();
}

/// `text` with the first `from` in it replaced.
std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    if (at == std::string::npos)
        return text + "<no " + from + ">";
    return text.replace(at, from.size(), to);
}

TEST(TwinOfADrawing, SharesWhatWasReadAndHasRecordsOfItsOwn)
{
    const TempFolder folder;
    auto drawing = Drawing::Open(folder.Write("plan.dxf", RecordText("AC1032", "\n")));
    const Items before{{1001, "TWSI"}, {1000, "before"}}, after{{1001, "TWSI"}, {1000, "after"}};
    drawing->SetRecord("TWSI", before);
    const auto twin = drawing->Twin();
    ASSERT_NE(twin, nullptr);
    EXPECT_EQ(&twin->Layouts(), &drawing->Layouts()) << "nothing is read or copied";
    EXPECT_FALSE(twin->Modified());
    EXPECT_EQ(twin->RecordOf("TWSI"), before);
    twin->SetRecord("TWSI", after);
    EXPECT_EQ(drawing->RecordOf("TWSI"), before);
    drawing->SetRecord("TWSM", {{1000, "later"}});
    EXPECT_EQ(twin->RecordOf("TWSM"), Items{});
    EXPECT_EQ(ErrorOf([&] { twin->Save(false); }),
              folder.Path("plan.dxf") + ": this is a second look at the drawing, which isn't saved");
    drawing->Save(false);
    drawing.reset();
    EXPECT_EQ(twin->RecordOf("TWSI"), after);
    EXPECT_EQ(twin->Layouts().front().name, "Model");
    EXPECT_EQ(Drawing::Open(twin->Path())->RecordOf("TWSI"), before);
}

struct SaveRow {
    const char* name;
    const char* version;
    const char* lineEnd;
    const char* owner; ///< in the new APPID entry
};

class SavedText : public ::testing::TestWithParam<SaveRow> {};

TEST_P(SavedText, DiffersInTheRecordTheApplicationAndTheSeedOnly)
{
    const SaveRow& row = GetParam();
    const std::string before = RecordText(row.version, row.lineEnd);
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", before);
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("TWSM",
                       {{1001, "TWSM"}, {1000, "Größe 3 図"}, {1070, "5"}, {1040, "2.5"}, {1002, "{"}, {1002, "}"}});
    EXPECT_TRUE(drawing->Modified());
    drawing->Save(false);
    EXPECT_FALSE(drawing->Modified());

    const bool utf8 = std::string(row.version) >= "AC1021";
    const std::string size = utf8 ? "Größe 3 図"
                                  : "Gr\xF6\xDF"
                                    "e 3 \\U+56F3";
    std::string expected =
        Replaced(before, DxfText(row.lineEnd).Tag(0, "ENDTAB").Text(),
                 DxfText(row.lineEnd)
                     .Raw("0\nAPPID\n5\n40\n" + std::string(row.owner) +
                          "100\nAcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n2\nTWSM\n70\n0\n0\nENDTAB\n")
                     .Text());
    expected = Replaced(expected, DxfText(row.lineEnd).Tag(5, "40").Text(), DxfText(row.lineEnd).Tag(5, "41").Text());
    expected = Replaced(expected, DxfText(row.lineEnd).Tag(350, "D").Text(),
                        DxfText(row.lineEnd)
                            .Raw("350\nD\n1001\nTWSM\n1000\n" + size + "\n1070\n5\n1040\n2.5\n1002\n{\n1002\n}\n")
                            .Text());
    EXPECT_EQ(folder.Read("plan.dxf"), expected);
    EXPECT_EQ(Drawing::Open(path)->RecordOf("twsm"),
              (Items{{1001, "TWSM"}, {1000, "Größe 3 図"}, {1070, "5"}, {1040, "2.5"}, {1002, "{"}, {1002, "}"}}));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"plan.dxf"}));
}

INSTANTIATE_TEST_SUITE_P(
    Versions, SavedText,
    ::testing::Values(SaveRow{"R13", "AC1012", "\n", ""}, SaveRow{"R14", "AC1014", "\r\n", ""},
                      SaveRow{"R2000", "AC1015", "\r\n", "330\n9\n"}, SaveRow{"R2004", "AC1018", "\n", "330\n9\n"},
                      SaveRow{"R2007", "AC1021", "\r", "330\n9\n"}, SaveRow{"R2010", "AC1024", "\n", "330\n9\n"},
                      SaveRow{"R2013", "AC1027", "\r\n", "330\n9\n"}, SaveRow{"R2018", "AC1032", "\n", "330\n9\n"}),
    [](const auto& row) { return std::string(row.param.name); });

class SavedBinary : public ::testing::TestWithParam<const char*> {};

TEST_P(SavedBinary, DiffersInTheRecordTheApplicationAndTheSeedOnly)
{
    const std::string version = GetParam();
    const std::string before = RecordText(version, "\n");
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", ToBinary(before, true));
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("TWSM", {{1000, "text"}, {1004, "00FF10"}, {1070, "-5"}, {1071, "70000"}, {1040, "2.5"}});
    drawing->Save(false);

    const std::string owner = version >= "AC1015" ? "330\n9\n" : "";
    std::string expected =
        Replaced(before, "0\nENDTAB\n",
                 "0\nAPPID\n5\n40\n" + owner +
                     "100\nAcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n2\nTWSM\n70\n0\n0\nENDTAB\n");
    expected = Replaced(expected, "5\n40\n", "5\n41\n");
    expected = Replaced(expected, "350\nD\n",
                        "350\nD\n1001\nTWSM\n1000\ntext\n1004\n00FF10\n1070\n-5\n1071\n70000\n1040\n2.5\n");
    EXPECT_EQ(folder.Read("plan.dxf"), ToBinary(expected, true));
    EXPECT_EQ(Drawing::Open(path)->RecordOf("TWSM"),
              (Items{{1001, "TWSM"}, {1000, "text"}, {1004, "00FF10"}, {1070, "-5"}, {1071, "70000"}, {1040, "2.5"}}));
}

INSTANTIATE_TEST_SUITE_P(Versions, SavedBinary,
                         ::testing::Values("AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027",
                                           "AC1032"));

constexpr const char* kTwoRecords = "1001\nACAD\n1000\nkept\n1001\nTWSM\n1000\nold\n1001\nOTHER\n1070\n1\n";

TEST(Records, ReplaceOnlyTheirOwnGroups)
{
    const std::string before = RecordText("AC1015", "\n", kTwoRecords);
    const TempFolder folder;
    const auto drawing = Drawing::Open(folder.Write("plan.dxf", before));
    EXPECT_EQ(drawing->RecordOf("OTHER"), (Items{{1001, "OTHER"}, {1070, "1"}}));
    drawing->SetRecord("ACAD", {{1001, "ACAD"}, {1000, "new"}});
    EXPECT_EQ(drawing->RecordOf("ACAD"), (Items{{1001, "ACAD"}, {1000, "new"}}));
    drawing->Save(false);
    EXPECT_EQ(folder.Read("plan.dxf"), Replaced(before, "1000\nkept\n", "1000\nnew\n"));
    drawing->SetRecord("ACAD", {});
    EXPECT_TRUE(drawing->RecordOf("ACAD").empty());
    drawing->Save(false);
    EXPECT_EQ(folder.Read("plan.dxf"), Replaced(before, "1001\nACAD\n1000\nkept\n", ""));
}

TEST(Records, AreWrittenInTheFilesOwnNumberLayout)
{
    const std::string before =
        "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nAPPID\n 70\n     1\n  0\nAPPID\n  5\n12\n  2\nTWSM\n 70\n     0\n"
        "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nDICTIONARY\n  5\nC\n330\n0\n  0\nENDSEC\n  "
        "0\nEOF\n";
    const TempFolder folder;
    const auto drawing = Drawing::Open(folder.Write("plan.dxf", before));
    drawing->SetRecord("TWSM", {{1070, "7"}, {1071, "8"}, {1000, "9"}});
    drawing->Save(false);
    EXPECT_EQ(folder.Read("plan.dxf"),
              Replaced(before, "330\n0\n", "330\n0\n1001\nTWSM\n1070\n     7\n1071\n        8\n1000\n9\n"));
}

TEST(Records, StandOnTheirOwnLinesBehindAFileThatIsCutOff)
{
    const std::string begin =
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nAPPID\n70\n1\n0\nAPPID\n2\nA\n0\nAPPID\n2\nB\n0\nENDTAB\n0\n"
        "ENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n";
    const std::string fresh = "1001\nA\n1000\n1\n1001\nB\n1000\n2\n";
    struct Row {
        const char* name;
        bool removes;
        std::string after;
    };
    for (const Row& row : {Row{"the last line goes", true, begin + fresh},
                           Row{"the last line stays", false, begin + "1001\nTWSM\n1000\nold\n" + fresh}}) {
        const TempFolder folder;
        const auto drawing = Drawing::Open(folder.Write("plan.dxf", begin + "1001\nTWSM\n1000\nold"));
        drawing->SetRecord("A", {{1000, "1"}});
        drawing->SetRecord("B", {{1000, "2"}});
        if (row.removes)
            drawing->SetRecord("TWSM", {});
        drawing->Save(false);
        EXPECT_EQ(folder.Read("plan.dxf"), row.after) << row.name;
    }
}

TEST(Records, KeepControlCharactersAndLongTexts)
{
    const std::string text = "line 1\nline 2\r\ttab ^ caret " + std::string(1000, 'x') + " end ";
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", RecordText("AC1015", "\r\n"));
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("TWSM", {{1000, text}});
    drawing->Save(false);
    const auto again = Drawing::Open(path);
    EXPECT_EQ(again->RecordOf("TWSM"), (Items{{1001, "TWSM"}, {1000, text}}));
    EXPECT_TRUE(again->ApplicationNames().back() == "TWSM");
    EXPECT_EQ(again->HeaderText("$HANDSEED", ""), "41");
}

TEST(Records, ThatAreTheSameChangeNothing)
{
    const TempFolder folder;
    const auto drawing = Drawing::Open(folder.Write("plan.dxf", RecordText("AC1015", "\n", kTwoRecords)));
    drawing->SetRecord("TWSM", {{1001, "TWSM"}, {1000, "old"}});
    EXPECT_FALSE(drawing->Modified());
}

TEST(Records, NeedADictionary)
{
    const auto drawing = DxfText().Header("AC1009").End().Open();
    EXPECT_EQ(ErrorOf([&] {
                  drawing->SetRecord("TWSM", {{1000, "x"}});
              }),
              "test.dxf: the drawing has no named-object dictionary to keep records in; save it as DXF of release 2000 "
              "or later");
    EXPECT_TRUE(drawing->RecordOf("TWSM").empty());
}

TEST(Records, OfAFileWithoutADictionaryStandBesideIt)
{
    const TempFolder folder;
    const std::string old = "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n0\nENDSEC\n0\nEOF\n";
    const std::string path = folder.Write("old.dxf", old);
    const auto drawing = Drawing::Open(path);
    EXPECT_EQ(RecordsFileOf(*drawing), path + ".sheetmaker");
    drawing->SetRecord("TWSM", {{1000, "x"}});
    drawing->Save(true);
    EXPECT_EQ(folder.Read("old.dxf"), old);
    const auto again = Drawing::Open(path);
    EXPECT_EQ(again->RecordOf("TWSM"), (std::vector<XDataItem>{{1001, "TWSM"}, {1000, "x"}}));
    const std::string newer = folder.Write("plan.dxf", RecordText("AC1015", "\n"));
    EXPECT_EQ(RecordsFileOf(*Drawing::Open(newer)), newer);
}

TEST(Records, OfOtherGroupCodesAreRefused)
{
    const TempFolder folder;
    const auto drawing = Drawing::Open(folder.Write("plan.dxf", RecordText("AC1015", "\n")));
    EXPECT_EQ(ErrorOf([&] {
                  drawing->SetRecord("TWSM", {{40, "1"}});
              }),
              folder.Path("plan.dxf") + ": group code 40 can't stand in a record; use 1000 to 1071");
}

TEST(Saving, KeepsTheFormerFileAndThePermissions)
{
    const std::string before = RecordText("AC1015", "\n");
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", before);
    std::filesystem::permissions(path, std::filesystem::perms(0640));
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("ACAD", {{1000, "x"}});
    drawing->Save(true);
    EXPECT_EQ(folder.Read("plan.dxf.bak"), before);
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"plan.dxf", "plan.dxf.bak"}));
}

TEST(Saving, LeavesASymbolicLinkInPlace)
{
    const TempFolder folder;
    const std::string real = folder.Write("real.dxf", RecordText("AC1015", "\n"));
    std::filesystem::create_symlink("real.dxf", folder.Path("link.dxf"));
    const auto drawing = Drawing::Open(folder.Path("link.dxf"));
    drawing->SetRecord("ACAD", {{1000, "x"}});
    drawing->Save(false);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.dxf")));
    EXPECT_EQ(Drawing::Open(real)->RecordOf("ACAD").size(), 2U);
}

TEST(Saving, RefusesAReadOnlyFile)
{
    const std::string before = RecordText("AC1015", "\n");
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", before);
    std::filesystem::permissions(path, std::filesystem::perms(0444));
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("ACAD", {{1000, "x"}});
    EXPECT_EQ(ErrorOf([&] { drawing->Save(true); }),
              path +
                  ": the drawing was not saved and is as it was: the file is read-only; take the write protection off");
    EXPECT_EQ(folder.Read("plan.dxf"), before);
    EXPECT_TRUE(drawing->Modified());
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"plan.dxf"}));
}

TEST(Saving, RefusesAFileThatSomebodyElseChanged)
{
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", RecordText("AC1015", "\n"));
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("ACAD", {{1000, "x"}});
    const std::string other = RecordText("AC1018", "\n", kTwoRecords);
    const std::string fresh = folder.Write("new.dxf", other);
    std::filesystem::rename(fresh, path);
    EXPECT_EQ(ErrorOf([&] { drawing->Save(false); }),
              path + ": somebody else changed the file since it was opened; open it again and repeat the change");
    EXPECT_EQ(folder.Read("plan.dxf"), other);
}

TEST(Saving, AFullDiskLeavesTheFileAsItWas)
{
    const std::string before = RecordText("AC1015", "\n");
    const TempFolder folder;
    const std::string path = folder.Write("plan.dxf", before);
    const auto drawing = Drawing::Open(path);
    drawing->SetRecord("ACAD", {{1000, std::string(5000, 'x')}});
    std::string error;
    {
        const FileSizeLimit limit(1024);
        error = ErrorOf([&] { drawing->Save(true); });
    }
    EXPECT_EQ(error, path + ": the drawing was not saved and is as it was: it can't be written (File too large); save "
                            "it under another name");
    EXPECT_EQ(folder.Read("plan.dxf"), before);
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"plan.dxf"}));
    drawing->Save(false);
    EXPECT_EQ(Drawing::Open(path)->RecordOf("ACAD")[1].text.size(), 5000U);
}

} // namespace
} // namespace sm::drawing::testing
