// SPDX-License-Identifier: GPL-3.0-or-later
// The list of sheets beside the settings dialog.
#include "screen/SheetChoice.h"

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
    EXPECT_EQ(choice.Now({FormControl()}).headline, "The page of \"A-102\" with this page setup.")
        << "beside a form that doesn't choose layouts";
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

/// The form with "Text Stamp" or another page in front, and a stamp chosen.
std::vector<FormControl> FormWithStamp(std::int32_t page)
{
    std::vector<FormControl> form = FormWith(false);
    FormControl strip, tab, combo;
    strip.kind = ControlKind::TabStrip;
    strip.selection = page;
    form.push_back(strip);
    tab.kind = ControlKind::TabPage;
    tab.parent = form.size() - 1;
    for (const char* caption : {"General Settings", "Text Stamp"}) {
        tab.caption = caption;
        form.push_back(tab);
    }
    combo.name = "cmbStampText";
    combo.items = {"", "FOR REVIEW"};
    combo.selection = 1;
    form.push_back(combo);
    return form;
}

TEST_F(SheetChoiceTest, MarksAreThoseOfTheForm)
{
    using beside::PageMark;
    using beside::PageMarkKind;
    DataKeg keg;
    keg.Layouts.resize(1);
    LayoutSettings& entry = keg.Layouts.front();
    entry.Stamp = {255, "Courier", 2, 1, "A-101", 5, 6, 72};
    entry.Attachments = {{"/a/b.txt", 1, 2, "A-101"}, {"/a/c.txt", 1, 2, "A-102"}};
    entry.SignatureFields = {{"Approved", "", 1, 2, 3, 4, "A-101"}};
    bool isReadable = true;
    SheetChoice list{{[] { return std::vector<cadhost::LayoutOutline>(); },
                      [] { return std::string(); },
                      {},
                      [&](DataKeg& read) {
                          read = keg;
                          return isReadable;
                      }}};
    EXPECT_TRUE(list.Now(FormWithStamp(0)).rows.empty());
    const PageMark stamp{PageMarkKind::Stamp, {5, 6}, {5, 6}, "FOR REVIEW", "Courier", 25.4, 255, 1};
    const PageMark file{PageMarkKind::Attachment, {1, 2}, {1, 2}, "/a/b.txt"};
    const PageMark field{PageMarkKind::Field, {1, 2}, {3, 4}, "Approved"};
    EXPECT_EQ(list.MarksOn("A-101"), (std::vector<PageMark>{stamp, file, field}));
    EXPECT_EQ(list.MarksOn("A-102").size(), 1U);
    EXPECT_EQ(list.StampAtHand(), std::nullopt) << "something else is placed";
    EXPECT_TRUE(list.Now(FormWithStamp(1)).rows.empty());
    EXPECT_EQ(list.StampAtHand(), stamp);
    EXPECT_EQ(list.MarksOn("A-101"), (std::vector<PageMark>{file, field})) << "the stamp goes along with the cursor";
    entry.Stamp.StampIndex = 0;
    EXPECT_EQ(list.StampAtHand(), std::nullopt);
    isReadable = false;
    EXPECT_TRUE(list.MarksOn("A-101").empty());
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
