// SPDX-License-Identifier: GPL-3.0-or-later
// Hyperlinks that a text's fields carry.
#include "drawing/DxfText.h"
#include "drawing/entities/Hyperlinks.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

const std::string kText = "0\nTEXT\n5\n20\n102\n{ACAD_XDICTIONARY\n360\n30\n102\n}\n8\n0\n1\nx\n";
const std::string kExtension = "0\nDICTIONARY\n5\n30\n330\n20\n3\nOTHER\n360\n41\n3\nACAD_FIELD\n360\n31\n";
const std::string kFields = "0\nDICTIONARY\n5\n31\n330\n30\n3\nTEXT\n360\n40\n";
const std::string kLink = "1001\nPE_URL\n1000\nhttp://a.example\n1002\n{\n1000\nSee a\n1000\nSheet 2\n1002\n}\n";

std::string FieldObject(const std::string& handle, const std::string& more)
{
    return "0\nFIELD\n5\n" + handle + "\n102\n{ACAD_REACTORS\n330\n31\n102\n}\n100\nAcDbField\n" + more;
}

/// "address|description|place" of the links of a drawing's only entity.
std::vector<std::string> LinksOf(const std::string& entity, const std::string& objects)
{
    const auto drawing = DxfText()
                             .Section("ENTITIES")
                             .Raw(entity)
                             .EndSection()
                             .Section("OBJECTS")
                             .Raw("0\nDICTIONARY\n5\nC\n" + objects)
                             .EndSection()
                             .End()
                             .Open();
    std::vector<Hyperlink> links{{"old", "", ""}};
    ReadHyperlinks(*drawing, ModelEntities(*drawing).front(), links);
    std::vector<std::string> texts;
    for (const Hyperlink& link : links)
        texts.push_back(link.url + "|" + link.description + "|" + link.subLocation);
    return texts;
}

struct FieldRow {
    const char* name;
    std::string entity, objects;
    std::vector<std::string> expected;
};
class FieldLinks : public ::testing::TestWithParam<FieldRow> {};

TEST_P(FieldLinks, AreTheTexts)
{
    EXPECT_EQ(LinksOf(GetParam().entity, GetParam().objects), GetParam().expected);
}

const std::string kParent = FieldObject("40", "1\n_text\n2\n%<\\_FldIdx 0>%\n90\n1\n360\n42\n");

INSTANTIATE_TEST_SUITE_P(
    Forms, FieldLinks,
    ::testing::Values(
        FieldRow{
            "OnTheField", kText, kExtension + kFields + FieldObject("40", kLink), {"http://a.example|See a|Sheet 2"}},
        FieldRow{"OnAChildField",
                 kText,
                 kExtension + kFields + kParent + FieldObject("42", "1\nAcVar\n" + kLink),
                 {"http://a.example|See a|Sheet 2"}},
        FieldRow{"InTheFieldsCode",
                 kText,
                 kExtension + kFields + kParent +
                     FieldObject("42", "1\nAcVar\n2\n\\AcVar Title \\href \"htt\n3\np://b.example/x\" \\f \"%tc1\"\n"),
                 {"http://b.example/x||"}},
        FieldRow{"TheTextsOwnComesFirst",
                 kText + "1001\nPE_URL\n1000\nhttp://own.example\n",
                 kExtension + kFields + FieldObject("40", kLink),
                 {"http://own.example||"}},
        FieldRow{"ExtendedDataBeforeCode",
                 kText,
                 kExtension + kFields + FieldObject("40", "2\n\\href \"http://b.example\"\n" + kLink),
                 {"http://a.example|See a|Sheet 2"}},
        FieldRow{"TheListMayBeTheFieldItself",
                 kText,
                 kExtension + FieldObject("31", kLink),
                 {"http://a.example|See a|Sheet 2"}},
        FieldRow{"OtherApplication",
                 kText,
                 kExtension + kFields + FieldObject("40", "1001\nACAD\n1000\nhttp://a.example\n"),
                 {}},
        FieldRow{"OtherEntry", kText, kExtension + FieldObject("41", kLink), {}},
        FieldRow{"NoAddressInTheCode", kText, kExtension + kFields + FieldObject("40", "2\n\\href \"open\n"), {}},
        FieldRow{"ChildrenInCircles",
                 kText,
                 kExtension + kFields + kParent + FieldObject("42", "360\n40\n360\n42\n" + kLink),
                 {"http://a.example|See a|Sheet 2"}},
        FieldRow{"MissingDictionary", kText, FieldObject("40", kLink), {}},
        FieldRow{"NoExtension", "0\nTEXT\n5\n20\n360\n30\n", kExtension + kFields + FieldObject("40", kLink), {}}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::drawing::testing
