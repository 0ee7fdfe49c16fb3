// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/PublisherStand.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <sys/stat.h>

namespace sm::publisher {
namespace {

using PubDocTest = PublisherTest;
using Names = std::vector<std::string>;

TEST_F(PubDocTest, FileNamesAreUniqueInAPrivateFolderThatGoesAwayWithTheDocument)
{
    const auto library = Library();
    auto first = library->CreatePubDoc();
    auto second = library->CreatePubDoc();
    EXPECT_EQ(ListTree(m_root + "/work"), Names{});
    const Names names{first->NewPsFileName(), first->NewPsFileName(), second->NewPsFileName()};
    EXPECT_EQ(std::filesystem::path(names[0]).parent_path(), std::filesystem::path(names[1]).parent_path());
    EXPECT_NE(std::filesystem::path(names[0]).parent_path(), std::filesystem::path(names[2]).parent_path());
    EXPECT_NE(names[0], names[1]);
    struct stat status {};
    ASSERT_EQ(::stat(std::filesystem::path(names[0]).parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
    WriteFile(names[0], "%!");
    first.reset();
    EXPECT_EQ(ListTree(m_root + "/work").size(), 1U);
    second.reset();
    EXPECT_EQ(ListTree(m_root + "/work"), Names{});
}

struct Refused {
    std::string name, path;
    double width, height;
    std::int32_t resolution;
    std::string jobOptions;
    std::int32_t status;
    std::string text;
};

TEST_F(PubDocTest, AddPsFileRefusesWhatCannotBecomeAPage)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string good = PostScript("good.ps", "%!\nshowpage\n");
    const std::string empty = PostScript("empty.ps", "");
    const std::string pdf = PostScript("plan.pdf", "%PDF-1.7\n");
    const std::string options = JobOptionsFile("bad.joboptions", "<<\n/OPM 7\n>> setdistillerparams");
    const std::string none = Out("none.ps");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::string size = " points can't be made. Choose a paper size of at most 508 m a side.";
    const std::string dpi = " dots per inch can't be used. Choose one from 72 to 4800.";
    const std::vector<Refused> rows = {
        {"missing", none, 9, 9, 600, "", -11,
         "Page 1: the PostScript file " + none + " can't be read: No such file or directory. Plot the sheet again."},
        {"folder", m_root, 9, 9, 600, "", -11,
         "Page 1: the PostScript file " + m_root + " can't be read: it is not an ordinary file. Plot the sheet again."},
        {"empty", empty, 9, 9, 600, "", -13, "Page 1: the file " + empty + " is empty. Plot the sheet again."},
        {"PDF", pdf, 9, 9, 600, "", -13,
         "Page 1: the file " + pdf + " is not PostScript: it does not begin with \"%!\". Plot the sheet again."},
        {"no width", good, 0, 9, 600, "", -14, "Page 1: a page of 0 by 9" + size},
        {"negative height", good, 9.5, -9, 600, "", -14, "Page 1: a page of 9.5 by -9" + size},
        {"no number", good, nan, 9, 600, "", -14, "Page 1: a page of 0 by 9" + size},
        {"endless", good, 9, 1e300, 600, "", -14, ""},
        {"too long", good, 9, 1440001, 600, "", -14, "Page 1: a page of 9 by 1440001" + size},
        {"no resolution", good, 9, 9, 0, "", -14, "Page 1: a resolution of 0" + dpi},
        {"resolution too high", good, 9, 9, 100000, "", -14, "Page 1: a resolution of 100000" + dpi},
        {"job options", good, 9, 9, 600, options, -4,
         options + ", line 2: /OPM must be a whole number from 0 to 1. Correct the value or choose other job options."},
        {"job options missing", good, 9, 9, 600, Out("x.joboptions"), -4,
         "The job options file " + Out("x.joboptions") +
             " does not exist. Choose other job options or put the file in place."},
    };
    for (const Refused& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(doc->AddPsFile(row.path, row.width, row.height, row.resolution, 1, row.jobOptions), row.status);
        if (!row.text.empty()) {
            EXPECT_EQ(doc->LastErrorText(), row.text);
        }
    }
    EXPECT_EQ(m_notes, (Names{rows[rows.size() - 2].text, rows.back().text}))
        << "what is wrong with job options is told beside the status";
    EXPECT_EQ(doc->SaveToPdf(Out("new.pdf"), 0, false, true), -9);
    EXPECT_EQ(doc->LastErrorText(), "There is no page to save. Plot a sheet first.");
    EXPECT_EQ(doc->AddPsFile(good, 9, 9, 600, 1, ""), 0);
    EXPECT_EQ(doc->LastErrorText(), "");
}

TEST_F(PubDocTest, ARefusedFileMayBeAddedAgainWithOtherJobOptions)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string page = NewPage(*doc);
    EXPECT_EQ(doc->AddPsFile(page, 300, 400, 600, 1, Out("none.joboptions")), -4);
    EXPECT_EQ(doc->AddPsFile(page, 300, 400, 600, 1, ""), 0);
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    EXPECT_EQ(m_reports.at(0).pages, 1U);
}

TEST_F(PubDocTest, AttachmentsThatAreMissingAreNotAddedAndNoFailure)
{
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    WriteFile(Out("there.txt"), "text");
    bool added = true;
    EXPECT_EQ(doc->AddAttachmentMark(0, 1, 2, Out("none.txt"), added), 0);
    EXPECT_FALSE(added);
    added = true;
    EXPECT_EQ(doc->AddAttachmentMark(0, 1, 2, m_root, added), 0);
    EXPECT_FALSE(added);
    EXPECT_EQ(doc->PendingMarkCount(), 0);
    EXPECT_EQ(doc->AddAttachmentMark(0, 1, 2, Out("there.txt"), added), 0);
    EXPECT_TRUE(added);
    EXPECT_EQ(doc->PendingMarkCount(), 1);
}

TEST_F(PubDocTest, MarksFarOffThePageAreLeftOutAndTold)
{
    const auto doc = Library()->CreatePubDoc();
    EXPECT_EQ(doc->AddPropertyMark(0, "A", "B"), -9);
    EXPECT_EQ(doc->LastErrorText(), "A mark can't be added before the first page.");
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(doc->AddLinkMark(0, 1, 2, kInfinite, 4, "x"), 0);
    EXPECT_EQ(doc->AddLinkMark(0, 1, 2, 3, std::nan(""), "x"), 0);
    EXPECT_EQ(doc->AddTextStampMark(0, -2.8e20, -2.8e20, "DRAFT", "Helvetica", 12, 0, 0), 0);
    EXPECT_EQ(doc->AddSignatureFieldMark(0, 0, 0, 14400.5, 10, "A", ""), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 0);
    EXPECT_EQ(m_notes, Names(4, "Page 1: a mark far off the page is left out"));
    EXPECT_EQ(doc->AddLinkMark(0, -14400, 2, 14400, 4, "x"), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 1);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 20000, 400, 600, 1, ""), 0); // a page may be larger
    EXPECT_EQ(doc->AddLinkMark(0, 19000, 2, 20000, 4, "x"), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 1);
}

struct Asked {
    std::string name, defaultName, shownName;
    Names answers;
    std::string result;
    Names messages;
};

TEST_F(PubDocTest, AsksForThePdfsName)
{
    std::filesystem::create_directory(Out("folder"));
    std::filesystem::create_directory(Out("other.pdf"));
    const std::string f = Out("folder");
    const auto folderText = [](const std::string& path) {
        return path + " is a folder. Please give the PDF file a name.";
    };
    const std::vector<Asked> rows = {
        {"never saved", "Drawing1", "Drawing1.pdf", {Out("a.pdf")}, Out("a.pdf"), {}},
        {"saved drawing", "/jobs/Plan.DWG", "/jobs/Plan.pdf", {Out("a.PDF")}, Out("a.PDF"), {}},
        {"dots in the name", "Rev.B", "Rev.B.pdf", {Out("rev.b")}, Out("rev.b.pdf"), {}},
        {"PDF already", "x.pdf", "x.pdf", {Out("x")}, Out("x.pdf"), {}},
        {"no default", "", "", {}, "", {}},
        {"cancelled", "x", "x.pdf", {""}, "", {}},
        {"folder first", "x", "x.pdf", {f, Out("x")}, Out("x.pdf"), {folderText(f)}},
        {"folder with the extension", "x", "x.pdf", {Out("other")}, "", {folderText(Out("other.pdf"))}},
        {"folders only", "x", "x.pdf", {f, f, f, Out("late")}, "", {folderText(f), folderText(f), folderText(f)}},
    };
    const auto doc = Library()->CreatePubDoc();
    for (const Asked& row : rows) {
        SCOPED_TRACE(row.name);
        m_desktop.saveAnswers = row.answers;
        m_desktop.dialogs.clear();
        m_desktop.messages.clear();
        EXPECT_EQ(doc->PromptForPdfName(row.defaultName, 77, "Host"), row.result);
        const FileDialog& dialog = m_desktop.dialogs.at(0);
        EXPECT_EQ(dialog.title, "Save PDF File - Host");
        EXPECT_EQ(dialog.defaultName, row.shownName);
        EXPECT_EQ(dialog.filterName, "PDF files");
        EXPECT_EQ(dialog.filterExtension, "pdf");
        EXPECT_EQ(dialog.owner, 77);
        Names texts;
        for (const Message& message : m_desktop.messages) {
            texts.push_back(message.text);
        }
        EXPECT_EQ(texts, row.messages);
    }
}

} // namespace
} // namespace sm::publisher
