// SPDX-License-Identifier: GPL-3.0-or-later
// The records that a drawing holds: in its named-object dictionary, and in the file beside it.
#include "dxf/DxfDrawing.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Scratch.h"
#include "fuzz/targets/SmallDrawings.h"
#include "fuzz/targets/Targets.h"
#include "write/RecordPatch.h"
#include "write/RecordsFile.h"

namespace sm::fuzz {

namespace {

using drawing::RecordChanges;
using drawing::XDataItem;

const std::vector<XDataItem>& OneRecord()
{
    static const std::vector<XDataItem> kRecord{{1001, "SMTEST"}, {1000, "a b"}, {1070, "5"}, {1040, "1.5"}};
    return kRecord;
}

std::string Patched(std::string_view file, const std::vector<drawing::Edit>& edits)
{
    std::string patched;
    std::uint64_t at = 0;
    for (const drawing::Edit& edit : edits) {
        if (edit.at < at || edit.removed > file.size() || edit.at > file.size() - edit.removed)
            Fail("edits lie in the file and in order");
        patched += file.substr(at, edit.at - at);
        patched += edit.bytes;
        at = edit.at + edit.removed;
    }
    return patched.append(file.substr(at));
}

/// Puts a record in, takes another out, and reads the file that comes of it.
void Rewrite(const drawing::Model& model)
{
    const auto edits = drawing::PatchRecords(model, RecordChanges{{"SMTEST", OneRecord()}, {"TWSM", {}}});
    const auto again = drawing::ReadModel(drawing::FileBytes::Keep(Patched(model.source.File(), edits)), "again.dxf");
    if (drawing::StoredRecord(*again, "SMTEST") != OneRecord())
        Fail("a record that was written is read again");
    if (!drawing::StoredRecord(*again, "TWSM").empty())
        Fail("a record that was removed isn't read again");
}

} // namespace

void FuzzRecords(std::string_view input)
{
    try {
        const auto model = drawing::ReadModel(drawing::FileBytes::Keep(std::string(input)), "plan.dxf");
        for (const char* application : {"TWSM", "ACAD", "SMTEST"})
            (void)drawing::StoredRecord(*model, application);
        Rewrite(*model);
    } catch (const drawing::DrawingError& error) {
        CheckReason(error.what());
    }
}

void FuzzSidecar(std::string_view input)
{
    const std::string drawing = ScratchFolder() + "/plan.dwg";
    WriteScratch("plan.dwg.sheetmaker", input);
    try {
        drawing::RecordsFile records(drawing);
        const auto* const before = records.Find("TWSM");
        const std::vector<XDataItem> kept = before != nullptr ? *before : std::vector<XDataItem>();
        records.Save({{"SMTEST", OneRecord()}}, false);
        const drawing::RecordsFile again(drawing);
        const auto* const written = again.Find("smtest");
        if (written == nullptr || *written != OneRecord())
            Fail("a record that was written is read again");
        const auto* const after = again.Find("TWSM");
        if ((after != nullptr) != (before != nullptr) || (after != nullptr && *after != kept))
            Fail("the other records stay as they were");
    } catch (const drawing::DrawingError& error) {
        CheckReason(error.what(), drawing);
    }
}

Inputs RecordSeeds()
{
    const std::string record =
        "1001\nTWSM\n1000\nown\n1070\n3\n1002\n{\n1010\n1\n1020\n2\n1030\n3\n1040\n0.5\n1002\n}\n"
        "1001\nSMTEST\n1000\nold\n1071\n70000\n";
    const std::string header = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$HANDSEED\n5\n100\n0\nENDSEC\n";
    const std::string tables =
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nAPPID\n5\n9\n70\n1\n0\nAPPID\n5\n12\n330\n9\n100\n"
        "AcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n2\nACAD\n70\n0\n0\nENDTAB\n0\nENDSEC\n";
    const auto objects = [](const std::string& records) {
        return "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDicti"
               "onary\n"
               "3\nACAD_LAYOUT\n350\nD\n" +
               records + "0\nDICTIONARY\n5\nD\n330\nC\n0\nENDSEC\n0\nEOF\n";
    };
    return {header + tables + objects(record), header + tables + objects(""), header + objects(record),
            tables + objects(""), DrawingOf({})};
}

Inputs SidecarSeeds()
{
    const std::string head =
        "{\n\"format\": \"sheetmaker-pdf records\",\n\"version\": 1,\n\"drawing\": \"plan.dwg\",\n";
    return {head +
                "\"records\": {\n\"TWSM\": [\n[1001, \"TWSM\"],\n[1000, \"\u00e4 \\\"3\\\"\"],\n[1070, \"5\"]]\n}\n}\n",
            head + "\"records\": {\n\"TWSM\": [],\n\"SMTEST\": [\n[1001, \"SMTEST\"]]\n}\n}\n",
            head + "\"records\": {\n}\n}\n"};
}

} // namespace sm::fuzz
