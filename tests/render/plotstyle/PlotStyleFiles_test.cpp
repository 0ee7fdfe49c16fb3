// SPDX-License-Identifier: GPL-3.0-or-later
// Files of plot styles: what is read from them, and how damaged ones are told.
#include "render/PlotStyleTable.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace sm::render {
namespace {

std::string Shipped(const std::string& name)
{
    std::ifstream file(SM_SOURCE_DIR "/share/sheetmaker-pdf/PlotStyles/" + name, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::string ErrorOf(const std::string& bytes)
{
    try {
        ParsePlotStyleTable(bytes, "x.ctb");
        return "(none)";
    } catch (const PlotStyleError& error) {
        return error.what();
    }
}

TEST(PlotStyleFile, ShippedTablesAreReadWhole)
{
    const struct {
        const char* name;
        bool byColor;
        std::size_t styles;
    } rows[] = {{"acad.ctb", true, 255},          {"monochrome.ctb", true, 255},    {"grayscale.ctb", true, 255},
                {"acad.stb", false, 1},           {"monochrome.stb", false, 5},     {"Screening 25%.ctb", true, 255},
                {"Screening 50%.ctb", true, 255}, {"Screening 75%.ctb", true, 255}, {"Screening 100%.ctb", true, 255}};
    for (const auto& row : rows) {
        const PlotStyleTable table = ParsePlotStyleTable(Shipped(row.name), row.name);
        EXPECT_EQ(table.byColor, row.byColor) << row.name;
        EXPECT_EQ(table.styles.size(), row.styles) << row.name;
        EXPECT_EQ(table.lineweights.size(), 27u) << row.name;
    }
    const PlotStyleTable monochrome = ParsePlotStyleTable(Shipped("monochrome.ctb"), "m");
    for (const PlotStyle& style : monochrome.styles)
        EXPECT_EQ(style.color, 0x000000u);
}

TEST(PlotStyleFile, ReadsEveryPropertyOfAStyle)
{
    const PlotStyleTable table = ParsePlotStyleTable(
        "description=\"Two\r\nlines of it\r\naci_table_available=FALSE\nscale_factor=2.5\napply_factor=TRUE\n"
        "plot_style{\n 0{\n  name=\"A {b}=c\n  color=-1024751852\n  color_policy=3\n  screen=70\n"
        "  linepattern_size=0.8\n  linetype=30\n  adaptive_linetype=FALSE\n  lineweight=12\n  fill_style=67\n"
        "  end_style=1\n  join_style=3\n  unknown=x\n }\n}\ncustom_lineweight_table{\n 1=0.05\n 0=0.0\n}\n",
        "x.stb");
    EXPECT_FALSE(table.byColor);
    EXPECT_EQ(table.linetypeScale, 2.5);
    EXPECT_EQ(table.lineweights, (std::vector<double>{0, 0.05}));
    ASSERT_EQ(table.styles.size(), 1u);
    const PlotStyle& style = table.styles[0];
    EXPECT_EQ(style.name, "A {b}=c");
    EXPECT_EQ(style.color, 0xEB8714u);
    EXPECT_TRUE(style.gray);
    EXPECT_EQ(style.screen, 70);
    EXPECT_EQ(style.patternSize, 0.8);
    EXPECT_EQ(style.linetype, 30);
    EXPECT_FALSE(style.adaptive);
    EXPECT_EQ(style.lineweight, 12u);
    EXPECT_EQ(style.fill, PlotFill::Diamonds);
    EXPECT_EQ(style.end, PlotEnd::Square);
    EXPECT_EQ(style.join, PlotJoin::Diamond);
}

TEST(PlotStyleFile, ValuesBeyondTheirRangeMeanTheObjects)
{
    const PlotStyleTable table = ParsePlotStyleTable(
        "plot_style{\n 0{\n  screen=900\n  linepattern_size=-1\n  linetype=77\n  lineweight=-5\n  fill_style=1\n"
        "  end_style=9\n  join_style=4\n }\n 255{\n  screen=1\n }\n}\ncustom_lineweight_table{\n 99999999=1\n "
        "0=-4\n}\n",
        "x.CTB");
    ASSERT_EQ(table.styles.size(), 255u);
    const PlotStyle& style = table.styles[0];
    EXPECT_EQ(style.screen, 100);
    EXPECT_EQ(style.patternSize, 0.5);
    EXPECT_EQ(style.linetype, kObjectLinetype);
    EXPECT_EQ(style.lineweight, 0u);
    EXPECT_EQ(style.fill, PlotFill::Object);
    EXPECT_EQ(style.end, PlotEnd::Object);
    EXPECT_EQ(style.join, PlotJoin::Object);
    EXPECT_EQ(table.lineweights, std::vector<double>{0});
}

TEST(PlotStyleFile, TellsWhatIsWrong)
{
    const std::string whole = Shipped("acad.ctb");
    std::string damaged = whole;
    damaged[200] = static_cast<char>(damaged[200] ^ 0x55);
    const struct {
        const char* name;
        std::string bytes;
        const char* error;
    } rows[] = {
        {"empty", "", "x.ctb: the file holds no plot styles"},
        {"another file", "%PDF-1.7\n", "x.ctb, line 1: this is no line of a plot style table"},
        {"another file of the family", "PIAFILEVERSION_2.0,PC3VER1,compress\r\npmzlibcodec0123456789ab",
         "x.ctb, line 1: the file is no plot style table"},
        {"an unknown codec", "PIAFILEVERSION_2.0,CTBVER1,compress\r\nlzma",
         "x.ctb, line 2: its contents are compressed in an unknown way"},
        {"cut off in the head", whole.substr(0, 55), "x.ctb: the file ends before its contents"},
        {"cut off", whole.substr(0, 2000), "x.ctb: its compressed contents are damaged or cut off"},
        {"damaged", damaged, "x.ctb: its compressed contents are damaged or cut off"},
        {"a group that ends twice", "plot_style{\n}\n}\n", "x.ctb, line 3: a group ends that never began"},
        {"a group that doesn't end", "a=1\nplot_style{\n 0{\n }\n", "x.ctb, line 2: a group begins that never ends"},
        {"groups without end", "a{\na{\na{\na{\na{\na{\na{\na{\na{\n",
         "x.ctb, line 9: this is no line of a plot style table"},
        {"no number", "plot_style{\n 0{\n  screen=much\n }\n}\n", "x.ctb, line 3: screen=much should be a number"},
        {"a number that goes on in the next line", "plot_style{\n 0{\n  screen=7\nmuch\n }\n}\n",
         "x.ctb, line 3: screen=7 much should be a number"},
        {"half a number", "plot_style{\n 0{\n  lineweight=1x\n }\n}\n",
         "x.ctb, line 3: lineweight=1x should be a number"},
        {"too many lines", std::string(400'002, '\n'), "x.ctb, line 200001: it holds too much for a plot style table"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ErrorOf(row.bytes),
                  std::string(row.error) + ". Save the plot style table again or choose another one.")
            << row.name;
}

TEST(PlotStyleFile, SizesOfTheHeadAreNotTrusted)
{
    for (const char size : {'\0', '\x7F', '\xFF'}) {
        std::string bytes = Shipped("acad.ctb");
        bytes.replace(52, 8, std::string(8, size));
        EXPECT_EQ(ParsePlotStyleTable(bytes, "x.ctb").styles.size(), 255u) << static_cast<int>(size);
    }
}

TEST(PlotStyleFile, WordsOfEightBytesAreTakenToo)
{
    const std::string bytes = Shipped("acad.ctb");
    const std::string zeros(4, '\0');
    const std::string wide = bytes.substr(0, 52) + zeros + bytes.substr(52, 4) + zeros + bytes.substr(56, 4) + zeros;
    EXPECT_EQ(ParsePlotStyleTable(wide + bytes.substr(60), "x.ctb").styles.size(), 255u);
}

TEST(PlotStyleFile, FilesThatCannotBeReadAreNamed)
{
    const struct {
        const char *path, *error;
    } rows[] = {{"/nowhere/x.ctb", "/nowhere/x.ctb: the file can't be read"},
                {"/dev/null", "/dev/null: the file can't be read"},
                {"/usr", "/usr: the file can't be read"}};
    for (const auto& row : rows) {
        try {
            ReadPlotStyleTable(row.path);
            ADD_FAILURE() << row.path;
        } catch (const PlotStyleError& error) {
            EXPECT_EQ(error.what(),
                      std::string(row.error) + ". Save the plot style table again or choose another one.");
        }
    }
}

} // namespace
} // namespace sm::render
