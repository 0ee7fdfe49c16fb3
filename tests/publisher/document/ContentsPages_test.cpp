// SPDX-License-Identifier: GPL-3.0-or-later
// Pages in front of the sheets: where their lines and links stand, how many pages they take.
#include "document/ContentsPages.h"

#include <gtest/gtest.h>
#include <qpdf/QPDFPageDocumentHelper.hh>

namespace sm::publisher {
namespace {

/// A document with as many empty pages as titles.
struct Paper {
    explicit Paper(const std::vector<std::string>& titles)
    {
        pdf.emptyPDF();
        for (const std::string& title : titles) {
            auto page = pdf.makeIndirectObject(QPDFObjectHandle::parse("<< /Type /Page /MediaBox [0 0 9 9] >>"));
            QPDFPageDocumentHelper(pdf).addPage(page, false);
            sheets.push_back({pdf.getAllPages().back(), title, 1, sheets.size() + 1, &none});
        }
    }
    QPDF pdf;
    Marks none;
    std::vector<SheetPage> sheets;
};

NavigationWanted Wanted(std::function<std::string(std::size_t)> heading = {})
{
    NavigationWanted wanted;
    wanted.contents = true;
    wanted.heading = std::move(heading);
    return wanted;
}

/// The texts of a page's marks, without dots, and the pages of its links.
std::vector<std::string> Texts(const Marks& marks)
{
    std::vector<std::string> texts;
    for (const Mark& mark : marks) {
        if (const auto* text = std::get_if<TextStampMark>(&mark); text != nullptr && text->text[0] != '.') {
            texts.push_back(text->text);
        } else if (const auto* link = std::get_if<LinkMark>(&mark); link != nullptr) {
            texts.push_back("-> " + std::to_string(link->page));
        }
    }
    return texts;
}

using Lines = std::vector<std::string>;

TEST(ContentsPages, AreNoneUnlessWanted)
{
    Paper paper({"A"});
    const ContentsPages contents(paper.sheets, {});
    contents.AddTo(paper.pdf, paper.sheets);
    EXPECT_EQ(contents.Count(), 0U);
    EXPECT_EQ(paper.pdf.getAllPages().size(), 1U);
    EXPECT_EQ(paper.sheets.at(0).number, 1U);
}

TEST(ContentsPages, ListSheetsWithTheirPages)
{
    Paper paper({"Ground floor", "", "Roof"});
    const ContentsPages contents(paper.sheets, Wanted());
    contents.AddTo(paper.pdf, paper.sheets);
    ASSERT_EQ(paper.sheets.size(), 4U);
    EXPECT_EQ(paper.sheets.at(0).title, "Contents");
    EXPECT_EQ(paper.sheets.at(3).number, 4U);
    EXPECT_EQ(paper.pdf.getAllPages().at(0).getObjGen(), paper.sheets.at(0).page.getObjGen());
    EXPECT_EQ(Texts(*paper.sheets.at(0).marks),
              (Lines{"Contents", "Ground floor", "-> 2", "2", "Sheet 2", "-> 3", "3", "Roof", "-> 4", "4"}));
    const auto& first = std::get<TextStampMark>(paper.sheets.at(0).marks->at(1));
    EXPECT_TRUE(first.isEmbedded);
    EXPECT_DOUBLE_EQ(first.x, 56.7);
    EXPECT_DOUBLE_EQ(first.y, 841.89 - 56.7 - 10 - 34);
    const auto& link = std::get<LinkMark>(paper.sheets.at(0).marks->at(2));
    EXPECT_DOUBLE_EQ(link.x2, 595.276 - 56.7);
    EXPECT_DOUBLE_EQ(link.y1, first.y - 4);
    EXPECT_DOUBLE_EQ(link.y2, first.y + 12);
}

TEST(ContentsPages, StandSheetsBelowTheirHeadings)
{
    Paper paper({"A", "B", "C"});
    const ContentsPages contents(paper.sheets, Wanted([](std::size_t page) { return page < 3 ? "house" : "site"; }));
    contents.AddTo(paper.pdf, paper.sheets);
    EXPECT_EQ(Texts(*paper.sheets.at(0).marks), (Lines{"Contents", "house", "-> 2", "A", "-> 2", "2", "B", "-> 3", "3",
                                                       "site", "-> 4", "C", "-> 4", "4"}));
    EXPECT_EQ(contents.Navigation().heading(1), "");
    EXPECT_EQ(contents.Navigation().heading(3), "house");
    EXPECT_EQ(contents.Navigation().heading(4), "site");
}

struct CountRow {
    std::size_t sheets, pages;
};

TEST(ContentsPages, TakeAsManyPagesAsTheyNeed)
{
    for (const CountRow& row : {CountRow{1, 1}, {43, 1}, {44, 2}, {88, 2}, {89, 3}, {133, 3}, {134, 4}}) {
        Paper paper(std::vector<std::string>(row.sheets, "A"));
        EXPECT_EQ(ContentsPages(paper.sheets, Wanted()).Count(), row.pages) << row.sheets;
    }
}

TEST(ContentsPages, LeaveNoHeadingAloneAtAPagesEnd)
{
    Paper paper(std::vector<std::string>(50, "A"));
    // The second heading would be line 43 of 43.
    const ContentsPages contents(paper.sheets, Wanted([](std::size_t page) { return page <= 41 ? "one" : "two"; }));
    contents.AddTo(paper.pdf, paper.sheets);
    EXPECT_EQ(Texts(*paper.sheets.at(0).marks).back(), "43");
    EXPECT_EQ(Texts(*paper.sheets.at(1).marks).front(), "two");
}

TEST(ContentsPages, GoOnInTheNextLine)
{
    const std::string word(60, 'm'), signs = "\xe6\x9d\xb1\xe6\x9d\xb1";
    std::string many;
    for (int i = 0; i < 25; ++i) {
        many += signs;
    }
    Paper paper({"m " + word + " m", many});
    const ContentsPages contents(paper.sheets, Wanted());
    contents.AddTo(paper.pdf, paper.sheets);
    EXPECT_EQ(Texts(*paper.sheets.at(0).marks),
              (Lines{"Contents", "m ", "-> 2", std::string(53, 'm'), "-> 2", "mmmmmmm m", "-> 2", "2",
                     many.substr(0, 3 * 44), "-> 3", many.substr(3 * 44), "-> 3", "3"}));
}

} // namespace
} // namespace sm::publisher
