// The list of sheets beside the settings dialog.
#include "run/SheetChoice.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace sm::app {
namespace {

using Names = std::vector<std::string>;

std::vector<FormControl> FormWith(bool all)
{
    FormControl option;
    option.name = "optAllLayouts";
    option.value = all ? 1 : 0;
    return {FormControl(), option};
}

class SheetChoiceTest : public testing::Test {
protected:
    std::string current = "Model";
    Names sheets = {"A-101", "A-102", "B, lower"};
    bool isClosed = false;
    SheetChoice choice{{[this] {
                            if (isClosed)
                                throw std::runtime_error("closed");
                            std::vector<cadhost::LayoutOutline> list{{"Model", true}};
                            for (const std::string& sheet : sheets)
                                list.push_back({sheet});
                            return list;
                        },
                        [this] { return current; }, [this](const std::string& name) { current = name; }}};
};

TEST_F(SheetChoiceTest, CurrentTabIsNamed)
{
    const beside::SheetsNow now = choice.Now(FormWith(false));
    EXPECT_EQ(now, (beside::SheetsNow{"\"Current Tab\" is \"Model\".",
                                      false,
                                      {{"Model", true, true, false},
                                       {"A-101", false, false, true},
                                       {"A-102", false, false, true},
                                       {"B, lower", false, false, true}}}));
    choice.MakeCurrent("A-102");
    EXPECT_EQ(choice.Now(FormWith(false)).headline, "\"Current Tab\" is \"A-102\".");
    EXPECT_EQ(choice.Only(), Names()) << "no limit";
}

TEST_F(SheetChoiceTest, AllTabsAreCounted)
{
    EXPECT_EQ(choice.Now(FormWith(true)).headline, "\"All Layout Tabs\": all 3 sheets become pages.");
    EXPECT_EQ(choice.Tick("A-101", false), "");
    EXPECT_EQ(choice.Now(FormWith(true)).headline, "\"All Layout Tabs\": 2 of 3 sheets become pages.");
    EXPECT_EQ(choice.Only(), (Names{"A-102", "B, lower"}));
    choice.TickAll();
    EXPECT_EQ(choice.Only(), Names());
    sheets = {"A-101"};
    EXPECT_EQ(choice.Now(FormWith(true)).headline, "\"All Layout Tabs\": the one sheet becomes a page.");
    sheets.clear();
    EXPECT_EQ(choice.Now(FormWith(true)).headline, "\"All Layout Tabs\": the drawing has no sheets.");
}

TEST_F(SheetChoiceTest, TheLastSheetStaysTicked)
{
    EXPECT_EQ(choice.Tick("A-101", false) + choice.Tick("A-102", false), "");
    EXPECT_EQ(choice.Tick("B, lower", false), "One sheet at least stays ticked: a PDF has a page.");
    EXPECT_EQ(choice.Only(), Names{"B, lower"});
}

struct WordsCase {
    const char* words;
    Names only;
    const char* reason;
};

TEST_F(SheetChoiceTest, WordsTickWhatTheyMean)
{
    const WordsCase cases[] = {
        {"a-1*", {"A-101", "A-102"}, ""},
        {" 1 , 3 ", {"A-101", "B, lower"}, ""},
        {"2..3", {"A-102", "B, lower"}, ""},
        {"B, lower", {"B, lower"}, ""},
        {"*", {}, ""},
        {"C*", {}, "The drawing has no layout \"C*\"; it has \"A-101\", \"A-102\", \"B, lower\"."},
        {" , ", {}, "Please type names of sheets, patterns or numbers, as A-1*, 3..5."},
    };
    for (const WordsCase& row : cases) {
        choice.TickAll();
        EXPECT_EQ(choice.TickMeant(row.words), row.reason) << row.words;
        EXPECT_EQ(choice.Only(), row.only) << row.words;
    }
}

TEST_F(SheetChoiceTest, ADrawingThatIsClosedHasNoSheets)
{
    isClosed = true;
    EXPECT_EQ(choice.Now(FormWith(true)).rows.size(), 0U);
    EXPECT_TRUE(choice.StandsBeside("frmGUITap"));
    EXPECT_FALSE(choice.StandsBeside("frmAttach"));
}

} // namespace
} // namespace sm::app
