// What the plotter's dialect allows in a page body, and what a body becomes.
#include "publisher/DialectPage.h"
#include "publisher/DialectPageMaker.h"

#include <gtest/gtest.h>

namespace sm::publisher {
namespace {

TEST(DialectBody, BecomesAContentStream)
{
    const struct {
        const char *name, *body, *content;
    } rows[] = {
        {"empty", "", ""},
        {"lines", "1 0 0 RG\n10 20 m\n30 -40 l\nS\n", "1 0 0 RG\n10 20 m\n30 -40 l\nS\n"},
        {"all operators of paths",
         "q 1 0 0 1 .5 -.5 cm 2 w 1 J 0 j 10 M 0 G .5 g 0 0 1 rg 1 2 m 1 2 3 4 5 6 c h f f* W n W* n Q",
         "q 1 0 0 1 .5 -.5 cm 2 w 1 J 0 j 10 M 0 G .5 g 0 0 1 rg 1 2 m 1 2 3 4 5 6 c h f f* W n W* n Q"},
        {"text is put between q and Q", "BT\n/F1 1 Tf\n8 0 0 8 1 2 Tm\n<4142> Tj\n[<43> -20 <44>] TJ\nET\nS",
         "q BT\n/F1 1 Tf\n8 0 0 8 1 2 Tm\n<4142> Tj\n[<43> -20 <44>] TJ\nET Q\nS"},
        {"text that doesn't show", "BT 3 Tr /F12 1 Tf <> Tj ET", "q BT 3 Tr /F12 1 Tf <> Tj ET Q"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TranslateDialectBody(row.body).value_or("(refused)"), row.content) << row.name;
}

TEST(DialectBody, ShowsOnlyPicturesOfItsPage)
{
    const struct {
        const char *name, *body;
        std::size_t pictures;
        bool taken;
    } rows[] = {
        {"the page's picture", "q 5 0 0 5 1 2 cm\n/I1 Do\nQ", 1, true},
        {"the second of two", "/I2 Do", 2, true},
        {"none there", "/I1 Do", 0, false},
        {"one too far", "/I3 Do", 2, false},
        {"number nought", "/I0 Do", 2, false},
        {"a number with a nought before it", "/I01 Do", 2, false},
        {"a font as a picture", "/F1 Do", 2, false},
        {"a picture as a font", "BT /I1 1 Tf ET", 2, false},
        {"a number as a picture", "1 Do", 2, false},
        {"no operand", "Do", 2, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TranslateDialectBody(row.body, row.pictures).has_value(), row.taken) << row.name;
}

TEST(DialectBody, RefusesEverythingElse)
{
    const std::pair<const char*, const char*> rows[] = {
        {"an unknown operator", "1 2 moveto"},
        {"a procedure", "{1 2 m} exec"},
        {"a literal string", "(text) Tj"},
        {"another name", "/Helvetica 1 Tf"},
        {"a name without number", "/F 1 Tf"},
        {"too few operands", "1 m"},
        {"too many operands", "1 2 3 m"},
        {"operands left over", "1 2"},
        {"an unknown sign", "1 2 m % comment"},
        {"an exponent", "1e3 2 m"},
        {"a string that doesn't end", "BT <41"},
        {"a string with another digit", "BT <4G> Tj ET"},
        {"an array in an array", "BT [[<41>]] TJ ET"},
        {"an array that doesn't end", "BT [<41>"},
        {"Q without q", "Q q"},
        {"q without Q", "q"},
        {"text in text", "BT BT ET ET"},
        {"text that doesn't end", "BT"},
        {"text that never began", "ET"},
        {"a NUL", "1 2 m\v"},
    };
    for (const auto& [name, body] : rows)
        EXPECT_FALSE(TranslateDialectBody(body)) << name;
}

TEST(DialectPage, RefusesFilesThatOnlyLookLikeIt)
{
    for (const char* file :
         {"", "%!PS-Adobe-3.0\n", "%!PS-Adobe-3.0\n%%Title: (x)\n%%EOF\n",
          "%!PS-Adobe-3.0\n%%Title: (x)\n%%BeginProlog\n/m/moveto load def\n%%EndProlog\nshowpage\n"})
        EXPECT_FALSE(ReadDialectPage(file)) << file;
}

TEST(Dialect, LeavesJobOptionsThatTurnColoursToTheInterpreter)
{
    EXPECT_TRUE(DialectRespects(""));
    EXPECT_TRUE(DialectRespects("<<\n/ColorConversionStrategy /LeaveColorUnchanged\n>> setdistillerparams\n"));
    EXPECT_FALSE(DialectRespects("<<\n/ColorConversionStrategy /Gray\n>> setdistillerparams\n"));
    EXPECT_FALSE(DialectRespects("<<\n/EmbedAllFonts false\n>> setdistillerparams\n"));
}

} // namespace
} // namespace sm::publisher
