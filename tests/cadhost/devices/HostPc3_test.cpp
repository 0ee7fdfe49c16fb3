// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"
#include "devices/ReadPc3.h"

#include <cstdlib>
#include <gmock/gmock.h>

namespace sm::cadhost {
namespace {

constexpr const char* kPlainHead = "PIAFILEVERSION_2.0,PC3VER1\r\n";

std::string HostPc3(const std::string& width = "420.0", const std::string& extra = "")
{
    return kPlainHead +
           ("meta{\n driver_pathname=\"C:\\CAD\\drv\\ps6.hdi\n localized_model_name=\"Level 2\n}\n"
            "media{\n size{\n  name=\"ISO_A3_(420.00_x_297.00_MM)\n  media_description{\n   printable_bounds_llx=5.0\n"
            "   printable_bounds_lly=17.0\n   printable_bounds_urx=414.0\n   printable_bounds_ury=279.0\n   "
            "media_bounds{\n"
            "    urx=" +
            width +
            "\n    ury=297.0\n   }\n  }\n }\n}\nres_color_mem{\n resolution{\n  phys_resolution_x=600.0\n }\n}\n" +
            extra);
}

TEST(HostPc3Test, TellsItsDriverResolutionAndSheet)
{
    const Pc3File file = ParsePc3(HostPc3("420.00000123 (    X-(_>D\"BIP)"), "x.pc3");
    EXPECT_EQ(file.device, "Level 2");
    EXPECT_EQ(file.driver, "ps6.hdi");
    EXPECT_EQ(file.resolution, 600);
    ASSERT_EQ(file.media.size(), 1U);
    EXPECT_EQ(file.media[0].canonicalName, "ISO_A3_(420.00_x_297.00_MM)");
    EXPECT_NEAR(file.media[0].width, 420, 1e-5);
    EXPECT_NEAR(file.media[0].margins.right, 6, 1e-5);
    EXPECT_EQ(file.media[0].margins.bottom, 17);
    EXPECT_EQ(file.media[0].margins.top, 18);
}

TEST(HostPc3Test, PrintableAreasThatAreNoneLeaveNoMargins)
{
    EXPECT_EQ(ParsePc3(HostPc3("400.0"), "x.pc3").media[0].margins, Margins{});
}

struct HostPc3Row {
    const char* name;
    std::string bytes;
    const char* expected;
};

TEST(HostPc3Test, IsOneClearErrorWhereItIsBroken)
{
    const std::string packed = "PIAFILEVERSION_2.0,PC3VER1,compress\r\npmzlibcodec";
    const HostPc3Row rows[] = {
        {"another file of the family", "PIAFILEVERSION_2.0,CTBVER1\n", "x.pc3: the file is no plotter configuration"},
        {"cut off in its head", packed + "1234", "x.pc3: the file ends before its contents"},
        {"damaged", packed + "0123456789ab" + "\x78\xDAxxxx", "x.pc3: its compressed contents are damaged or cut off"},
        {"another codec", "PIAFILEVERSION_2.0,PC3VER1,compress\r\nlzma",
         "x.pc3, line 2: its contents are compressed in an unknown way"},
        {"no text of groups", std::string(kPlainHead) + "hello\n",
         "x.pc3, line 1: this is no line of a plotter configuration"},
        {"nothing inside", kPlainHead, "x.pc3: the plotter configuration has no model"},
        {"no driver", std::string(kPlainHead) + "meta{\n localized_model_name=\"A\n}\n",
         "x.pc3: the plotter configuration has no driver"},
        {"no resolution", HostPc3("420.0", "res_color_mem{\n}\n"),
         "x.pc3: the plotter configuration has no resolution"},
        {"a sheet of no width", HostPc3("0.0"), "x.pc3: the plotter configuration has no media"},
        {"a width in words", HostPc3("wide"), "x.pc3: the plotter configuration has no media"},
    };
    for (const HostPc3Row& row : rows)
        EXPECT_EQ(ErrorOf([&] { ParsePc3(row.bytes, "x.pc3"); }), row.expected) << row.name;
}

class InstalledPc3Test : public HostTest {};

/// What the installer makes of our own files for the CAD host says the same.
TEST_F(InstalledPc3Test, SaysWhatOursSays)
{
    const std::string ours = SM_SOURCE_DIR "/share/sheetmaker-pdf/PC3", made = (folder / "made").string();
    const std::string command =
        "/usr/bin/python3 " SM_SOURCE_DIR "/packaging/windows/make_pc3.py '" + ours + "' '" + made + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    for (const char* generation : {"6", "7", "8"})
        for (const char* quality : {"High", "Mid"}) {
            const std::string name = std::string("/Tarnwick PS") + generation + " " + quality + "Res.pc3";
            const Pc3File one = ReadPc3(ours + name), other = ReadPc3(made + name);
            EXPECT_EQ(other.device, one.device);
            EXPECT_EQ(other.driver, one.driver);
            EXPECT_EQ(other.resolution, one.resolution);
            ASSERT_EQ(other.media.size(), 1U);
            const Medium& sheet = other.media[0];
            const Medium* const same = one.FindMedium(sheet.canonicalName);
            ASSERT_NE(same, nullptr) << sheet.canonicalName;
            EXPECT_EQ(sheet.width, same->width);
            EXPECT_EQ(sheet.height, same->height);
            EXPECT_NEAR(sheet.margins.left, same->margins.left, 1e-9);
            EXPECT_NEAR(sheet.margins.top, same->margins.top, 1e-9);
        }
}

} // namespace
} // namespace sm::cadhost
