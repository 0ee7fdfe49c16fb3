// SPDX-License-Identifier: GPL-3.0-or-later
// A face's glyphs are taken out of its own file, as long as that is what the pages were made with.
#include "fonts/SfntTables.h"
#include "publisher/dialect/FontBench.h"

namespace sm::publisher {
namespace {

/// Fonts of Debian's.
constexpr char kCubic[] = "/usr/share/fonts/opentype/urw-base35/URWGothic-Book.otf";
constexpr char kQuadratic[] = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";
constexpr char kCollection[] = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";

enum class Taken : std::uint8_t { FromItsFile, FromPages };

struct FileRow {
    const char* name;
    FontSource source;
    std::vector<SfntGlyph> onPage;
    Taken taken;
    const char* file;  ///< the descriptor's key
    const char* codes; ///< what they lead to
    const char* widths;
    const char* remark;
};

class FontFiles : public Fonts, public testing::WithParamInterface<FileRow> {};

/// The pages' glyphs show nothing, the files' do.
bool HoldsOutlines(const std::string& sfnt)
{
    return SfntTable(SfntTables(sfnt), "glyf", 20).has_value();
}

TEST_P(FontFiles, AreTakenWhereTheyAreAsTheyWere)
{
    FontObjects fonts(m_pdf);
    DialectFont onPage = Outlines("Gothic", GetParam().onPage);
    onPage.source = GetParam().source;
    auto font = fonts.Font(onPage);
    const auto remarks = fonts.Finish();
    auto descriptor = Descendant(font).getKey("/FontDescriptor");
    ASSERT_TRUE(descriptor.hasKey(GetParam().file));
    const auto data = descriptor.getKey(GetParam().file).getStreamData();
    const std::string program(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
    EXPECT_EQ(HoldsOutlines(program) || descriptor.hasKey("/FontFile3"), GetParam().taken == Taken::FromItsFile);
    EXPECT_EQ(CodeMap(font), GetParam().codes);
    EXPECT_EQ(Descendant(font).getKey("/W").unparse(), GetParam().widths);
    ASSERT_EQ(remarks.size(), *GetParam().remark == 0 ? 0U : 1U);
    EXPECT_EQ(remarks.empty() ? "" : remarks.front(), GetParam().remark);
}

/// With advances of those in the files, told apart by their bearings.
const std::vector<SfntGlyph> kGothicBA{{574, 0, ""}, {740, 0, ""}}, kOther{{574, 0, ""}, {741, 0, ""}};
const std::vector<SfntGlyph> kSansBA{{1366, 0, ""}, {1366, 1, ""}}, kSansADieresis{{1366, 0, ""}};
const std::vector<SfntGlyph> kHeiBA{{1229, 0, ""}, {1229, 1, ""}};

INSTANTIATE_TEST_SUITE_P(
    Rows, FontFiles,
    testing::Values(
        FileRow{"Cubic",
                {kCubic, 0, Curves::Cubic, {35, 34}},
                kGothicBA,
                Taken::FromItsFile,
                "/FontFile3",
                "<41> 2\n<42> 1\n",
                "[ 0 [ 277 740 574 ] ]",
                ""},
        FileRow{"CubicChanged",
                {kCubic, 0, Curves::Cubic, {35, 34}},
                kOther,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 741 ] ]",
                "The curves of the font Gothic come near to its own only: it has other advances than on the pages"},
        FileRow{"CubicGone",
                {"/nowhere/x.otf", 0, Curves::Cubic, {35, 34}},
                kGothicBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 740 ] ]",
                "The curves of the font Gothic come near to its own only: No such file or directory"},
        FileRow{"CubicNoFont",
                {"/etc/passwd", 0, Curves::Cubic, {35, 34}},
                kGothicBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 740 ] ]",
                "The curves of the font Gothic come near to its own only: it holds no table CFF "},
        FileRow{"CubicThatIsQuadratic",
                {kQuadratic, 0, Curves::Cubic, {35, 34}},
                kGothicBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 740 ] ]",
                "The curves of the font Gothic come near to its own only: it holds no table CFF "},
        FileRow{"Quadratic",
                {kQuadratic, 0, Curves::Quadratic, {37, 36}},
                kSansBA,
                Taken::FromItsFile,
                "/FontFile2",
                "<41> 2\n<42> 1\n",
                "[ 0 [ 748 1366 1366 ] ]",
                ""},
        FileRow{"MadeOfOthers",
                {kQuadratic, 0, Curves::Quadratic, {132}},
                kSansADieresis,
                Taken::FromItsFile,
                "/FontFile2",
                "<41> 2\n",
                "[ 0 [ 748 1366 1366 647 ] ]",
                ""},
        FileRow{"OfACollection",
                {kCollection, 1, Curves::Quadratic, {48667, 48666}},
                kHeiBA,
                Taken::FromItsFile,
                "/FontFile2",
                "<41> 2\n<42> 1\n",
                "[ 0 [ 2048 1229 1229 ] ]",
                ""},
        FileRow{"QuadraticChanged",
                {kQuadratic, 0, Curves::Quadratic, {37, 36}},
                kOther,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 741 ] ]",
                "The font Gothic is embedded as the pages hold it: it has other advances than on the pages"},
        FileRow{"QuadraticGone",
                {"/nowhere/x.ttf", 0, Curves::Quadratic, {37, 36}},
                kSansBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 1366 1366 ] ]",
                "The font Gothic is embedded as the pages hold it: No such file or directory"},
        FileRow{"QuadraticThatIsCubic",
                {kCubic, 0, Curves::Quadratic, {35, 34}},
                kGothicBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 574 740 ] ]",
                "The font Gothic is embedded as the pages hold it: it holds no table glyf"},
        FileRow{"GlyphBeyondTheFile",
                {kQuadratic, 0, Curves::Quadratic, {37, 65000}},
                kSansBA,
                Taken::FromPages,
                "/FontFile2",
                "<41> 1\n<42> 2\n",
                "[ 0 [ 500 1366 1366 ] ]",
                "The font Gothic is embedded as the pages hold it: glyph 65000 isn't in it"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::publisher
