// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/PublisherStand.h"

#include "publisher/JobOptions.h"

#include <chrono>
#include <filesystem>
#include <set>
#include <sys/stat.h>

namespace sm::publisher {
namespace {

using SaveToPdf = PublisherTest;
using Names = std::vector<std::string>;

const std::string kSettings = SM_SOURCE_DIR "/share/sheetmaker-pdf/Settings/";

/// The lines of `output` that begin with `start`.
std::string LogLines(const std::string& output, const std::string& start)
{
    std::string found;
    for (std::size_t at = 0; at < output.size();) {
        const std::size_t end = std::min(output.find('\n', at), output.size());
        if (output.compare(at, start.size(), start) == 0) {
            found += output.substr(at, end - at) + "\n";
        }
        at = end + 1;
    }
    return found;
}

int Count(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

std::string Contents(const std::string& pdf, int page)
{
    return RunTool("mutool show -b " + pdf + " pages/" + std::to_string(page) + "/Contents").output;
}

TEST_F(SaveToPdf, MakesOnePageOfEachFileInOrder)
{
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "First sheet"), 595.276, 841.89, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Second sheet"), 2383.937, 1683.78, 1200, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Third sheet"), 306.14173, 396, 600, 1, ""), 0);
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    EXPECT_EQ(doc->LastErrorText(), "");

    EXPECT_EQ(RunTool("qpdf --check " + Out("plan.pdf")).exitCode, 0);
    const std::string info = RunTool("pdfinfo -box -l 3 " + Out("plan.pdf")).output;
    EXPECT_EQ(LogLines(info, "Pages:"), "Pages:           3\n");
    EXPECT_EQ(LogLines(info, "PDF version:"), "PDF version:     1.7\n");
    EXPECT_EQ(LogLines(info, "Page    1 MediaBox"), "Page    1 MediaBox:      0.00     0.00   595.28   841.89\n");
    EXPECT_EQ(LogLines(info, "Page    2 MediaBox"), "Page    2 MediaBox:      0.00     0.00  2383.94  1683.78\n");
    EXPECT_EQ(LogLines(info, "Page    3 MediaBox"), "Page    3 MediaBox:      0.00     0.00   306.14   396.00\n");
    EXPECT_EQ(RunTool("mutool show " + Out("plan.pdf") + " pages/3/MediaBox").output, "[ 0 0 306.14173 396 ]\n");
    EXPECT_EQ(RunTool("pdftotext " + Out("plan.pdf") + " -").output,
              "First sheet\n\n\fSecond sheet\n\n\fThird sheet\n\n\f");
    EXPECT_EQ(LogLines(RunTool("pdffonts " + Out("plan.pdf")).output, "ABCDEF"), "");
    EXPECT_EQ(ListTree(m_root), (Names{"out/", "out/plan.pdf", "work/", "work/" + ListTree(m_root + "/work").at(0)}));
    EXPECT_EQ(m_notes, Names{});
}

TEST_F(SaveToPdf, ReportsWhatWasDone)
{
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 1200, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    ASSERT_EQ(m_reports.size(), 1U);
    EXPECT_EQ(m_reports[0].pdfPath, Out("plan.pdf"));
    EXPECT_EQ(m_reports[0].pages, 3U);
    EXPECT_EQ(m_reports[0].interpreterRuns, 2U);
    EXPECT_EQ(m_reports[0].pdfBytes, std::filesystem::file_size(Out("plan.pdf")));
    EXPECT_GT(m_reports[0].makingPages.count(), 0);
    EXPECT_GT(m_reports[0].assembling.count(), 0);
}

TEST_F(SaveToPdf, PagesWithDifferentJobOptionsKeepTheirOrder)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string grey = kSettings + "Greyscale [600 dpi].joboptions";
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "One"), 300, 400, 600, 1, grey), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Two"), 310, 400, 600, 1, kSettings + "Graphics [600 dpi].joboptions"), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Three"), 320, 400, 600, 1, grey), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Four"), 330, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0) << doc->LastErrorText();
    EXPECT_EQ(RunTool("pdftotext " + Out("plan.pdf") + " -").output, "One\n\n\fTwo\n\n\fThree\n\n\fFour\n\n\f");
    EXPECT_EQ(RunTool("qpdf --check " + Out("plan.pdf")).exitCode, 0);
    const std::string red = "1 0 0 rg";
    EXPECT_EQ(Contents(Out("plan.pdf"), 1).find(red), std::string::npos);
    EXPECT_NE(Contents(Out("plan.pdf"), 2).find(red), std::string::npos);
    EXPECT_EQ(Contents(Out("plan.pdf"), 3).find(red), std::string::npos);
    EXPECT_NE(Contents(Out("plan.pdf"), 4).find(red), std::string::npos);
    EXPECT_EQ(m_reports.at(0).interpreterRuns, 3U);
}

TEST_F(SaveToPdf, EveryShippedJobOptionsFileMakesAPageWithItsFontInside)
{
    const auto doc = Library()->CreatePubDoc();
    int pages = 0;
    std::set<std::string> settings; // that differ: one run each
    for (const auto& entry : std::filesystem::directory_iterator(kSettings)) {
        const JobOptions options = ReadJobOptionsFile(entry.path().string());
        if (options.archive != Archive::None)
            continue; // takes the plotter's own pages alone
        settings.insert(options.text);
        ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, entry.path().string()), 0) << doc->LastErrorText();
        ++pages;
    }
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0) << doc->LastErrorText();
    const std::string fonts = RunTool("pdffonts " + Out("plan.pdf")).output;
    EXPECT_EQ(m_reports.at(0).pages, static_cast<std::size_t>(pages));
    EXPECT_EQ(Count(fonts, "Helvetica"), static_cast<int>(settings.size())) << fonts;
    EXPECT_EQ(Count(fonts, "Type 1C           WinAnsi          yes yes"), static_cast<int>(settings.size())) << fonts;
    EXPECT_EQ(m_reports.at(0).interpreterRuns, settings.size());
}

TEST_F(SaveToPdf, ForeignPagesAreKeptToNoStandard)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string options = std::string(kSettings) + "/Archive [PDF-A].joboptions";
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, options), 0);
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), -16);
    EXPECT_EQ(doc->LastErrorText(), "Page 1 was made by the PostScript interpreter, whose pages are not kept to PDF/A. "
                                    "Choose job options that leave colours and pictures as they are.");
    EXPECT_FALSE(std::filesystem::exists(Out("plan.pdf")));
}

TEST_F(SaveToPdf, PageLargerThanAPdfUnitAllowsGetsAUnitOfItsOwn)
{
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(PostScript("a.ps", "%!\n28000 1400 moveto 28800 1440 lineto stroke showpage\n"), 28800,
                             1440, 600, 1, ""),
              0);
    ASSERT_EQ(doc->SaveToPdf(Out("long.pdf"), 0, false, true), 0) << doc->LastErrorText();
    EXPECT_EQ(RunTool("qpdf --check " + Out("long.pdf")).exitCode, 0);
    EXPECT_EQ(RunTool("mutool show " + Out("long.pdf") + " pages/1/MediaBox").output, "[ 0 0 14400 720 ]\n");
    EXPECT_EQ(RunTool("mutool show " + Out("long.pdf") + " pages/1/UserUnit").output, "2\n");
    const std::string bounds =
        RunTool("gs -q -dNOSAFER -dBATCH -dNOPAUSE -sDEVICE=bbox -dNoUserUnit " + Out("long.pdf")).output;
    EXPECT_EQ(LogLines(bounds, "%%BoundingBox"), "%%BoundingBox: 13999 699 14400 720\n");
}

TEST_F(SaveToPdf, WritesDocumentInformationAndTheSameInXmp)
{
    ::setenv("TZ", "Europe/Paris", 1);
    ::tzset();
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    const LocalDateTime made{std::chrono::sys_days{std::chrono::year{2026} / 7 / 4}.time_since_epoch() +
                             std::chrono::seconds{45296}};
    doc->SetDocSummary("Plan <1> & Ärger", "Zoë Ω", made, made + std::chrono::hours{24 * 180});
    doc->SetDocInfo("Creator", "Test Creator 2.0");
    doc->SetDocInfo("TITLE_1/DRAWN BY#1", "J (S)");
    doc->SetDocInfo("Empty", "");
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    ::unsetenv("TZ");
    ::tzset();

    const std::string info = RunTool("pdfinfo -isodates " + Out("plan.pdf")).output;
    EXPECT_EQ(info.substr(0, info.find("Custom")), "Title:           Plan <1> & Ärger\n"
                                                   "Author:          Zoë Ω\n"
                                                   "Creator:         Test Creator 2.0\n"
                                                   "Producer:        Test Producer 1.0\n"
                                                   "CreationDate:    2026-07-04T12:34:56+02\n"
                                                   "ModDate:         2026-12-31T12:34:56+01\n");
    EXPECT_EQ(LogLines(RunTool("pdfinfo -custom " + Out("plan.pdf")).output, "TITLE"), "TITLE_1/DRAWN BY#1:J (S)\n");
    const std::string xmp = RunTool("pdfinfo -meta " + Out("plan.pdf")).output;
    for (const std::string expected :
         {"<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">Plan &lt;1&gt; &amp; Ärger</rdf:li></rdf:Alt></dc:title>",
          "<dc:creator><rdf:Seq><rdf:li>Zoë Ω</rdf:li></rdf:Seq></dc:creator>",
          "<xmp:CreatorTool>Test Creator 2.0</xmp:CreatorTool>", "<pdf:Producer>Test Producer 1.0</pdf:Producer>",
          "<pdfx:TITLE_1\u2182002FDRAWN\u21820020BY\u218200231>J "
          "(S)</pdfx:TITLE_1\u2182002FDRAWN\u21820020BY\u218200231>",
          "<xmp:CreateDate>2026-07-04T12:34:56+02:00</xmp:CreateDate>",
          "<xmp:ModifyDate>2026-12-31T12:34:56+01:00</xmp:ModifyDate>"}) {
        EXPECT_NE(xmp.find(expected), std::string::npos) << expected << "\n" << xmp;
    }
    WriteFile(Out("x.xml"), xmp);
    EXPECT_EQ(RunTool("python3 -c \"import sys,xml.dom.minidom as m; m.parse(sys.argv[1])\" " + Out("x.xml")).output,
              "");
}

TEST_F(SaveToPdf, DeletesThePostScriptFilesAfterwards)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string own = NewPage(*doc);
    const std::string other = PostScript("other.ps", "%!\nshowpage\n");
    ASSERT_EQ(doc->AddPsFile(own, 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(other, 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    EXPECT_EQ(ListTree(m_root + "/out"), Names{"plan.pdf"});
    EXPECT_FALSE(std::filesystem::exists(own));
}

TEST_F(SaveToPdf, KeepsThePostScriptFilesBesideThePdf)
{
    auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(PostScript("other.ps", "%!\nshowpage\n"), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.v2.pdf"), 0, false, false), 0);
    doc.reset();
    EXPECT_EQ(ListTree(m_root + "/out"), (Names{"other.ps", "plan.v2-1.ps", "plan.v2-3.ps", "plan.v2.pdf"}));
    EXPECT_EQ(ListTree(m_root + "/work"), Names{});
    EXPECT_EQ(m_notes, (Names{"The PostScript of page 1 was kept as " + Out("plan.v2-1.ps"),
                              "The PostScript of page 3 was kept as " + Out("plan.v2-3.ps")}));
}

TEST_F(SaveToPdf, OpensTheViewerOrSaysThatThereIsNone)
{
    const auto library = Library();
    for (const bool canOpen : {true, false}) {
        m_desktop.canOpen = canOpen;
        const auto doc = library->CreatePubDoc();
        const std::string page = NewPage(*doc);
        ASSERT_EQ(doc->AddPsFile(page, 300, 400, 600, 1, ""), 0);
        EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, true, true), canOpen ? 0 : -12);
        EXPECT_EQ(doc->LastErrorText(),
                  canOpen ? "" : Out("plan.pdf") + " was saved, but there is no program to show it.");
        EXPECT_FALSE(std::filesystem::exists(page));
    }
    EXPECT_EQ(m_desktop.opened, (Names{Out("plan.pdf"), Out("plan.pdf")}));
    EXPECT_EQ(RunTool("qpdf --check " + Out("plan.pdf")).exitCode, 0);
}

TEST_F(SaveToPdf, ReplacesAnOlderPdfAndFollowsALink)
{
    std::filesystem::create_directory(Out("real"));
    WriteFile(Out("real/plan.pdf"), "old");
    std::filesystem::permissions(Out("real/plan.pdf"), std::filesystem::perms(0604));
    std::filesystem::create_symlink("real/plan.pdf", Out("link.pdf"));
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    const mode_t before = ::umask(027);
    ASSERT_EQ(doc->SaveToPdf(Out("link.pdf"), 0, false, true), 0);
    ::umask(before);
    EXPECT_TRUE(std::filesystem::is_symlink(Out("link.pdf")));
    EXPECT_EQ(ReadFile(Out("real/plan.pdf")).substr(0, 8), "%PDF-1.7");
    EXPECT_EQ(RunTool("stat -c %a " + Out("real/plan.pdf")).output, "604\n"); // the old file's rights stay
}

TEST_F(SaveToPdf, PathsMayHoldAnyCharacter)
{
    m_options.workFolder += "/%d:(x) *";
    std::filesystem::create_directory(m_options.workFolder);
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->AddPsFile(PostScript("a) quit (%d@:*\\.ps", "%!\nshowpage\n"), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("Über %d:(plan).pdf"), 0, false, true), 0) << doc->LastErrorText();
    EXPECT_EQ(RunTool("qpdf --check '" + Out("Über %d:(plan).pdf") + "'").exitCode, 0);
}

TEST_F(SaveToPdf, APageLeavesNothingForTheNextOne)
{
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(
        doc->AddPsFile(PostScript("a.ps", "%!\n/show {pop} def /showpage {} def 1 2 3 << /x 1 >> begin systemdict "
                                          "/showpage get exec 5 dict begin\n"),
                       300, 400, 600, 1, ""),
        0);
    ASSERT_EQ(doc->AddPsFile(NewPage(*doc, "Second"), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0) << doc->LastErrorText();
    EXPECT_EQ(RunTool("pdftotext " + Out("plan.pdf") + " -").output, "\fSecond\n\n\f");
}

TEST_F(SaveToPdf, LargeContentsAreCompressed)
{
    std::string body = "%!\n";
    for (int i = 0; i < 20000; ++i) {
        body += std::to_string(i % 300) + " " + std::to_string(i % 397) + " moveto 50 60 lineto stroke\n";
    }
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(PostScript("a.ps", body + "showpage\n"), 300, 400, 600, 1, ""), 0);
    ASSERT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0) << doc->LastErrorText();
    EXPECT_LT(m_reports.at(0).pdfBytes, body.size() / 3);
    EXPECT_EQ(RunTool("qpdf --check " + Out("plan.pdf")).exitCode, 0);
    EXPECT_EQ(LogLines(RunTool("mutool show " + Out("plan.pdf") + " pages/1/Contents").output, "  /Filter"),
              "  /Filter /FlateDecode\n");
}

} // namespace
} // namespace sm::publisher
