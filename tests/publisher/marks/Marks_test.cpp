// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/PublisherStand.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace sm::publisher {
namespace {

using Names = std::vector<std::string>;

class MarksTest : public PublisherTest {
protected:
    void AddSheet(IPubDoc& doc, const std::string& title, double width = 400, double height = 500)
    {
        ASSERT_EQ(doc.AddPsFile(NewPage(doc, title), width, height, 600, 1, ""), 0) << doc.LastErrorText();
    }
    std::string Save(IPubDoc& doc)
    {
        EXPECT_EQ(doc.SaveToPdf(Out("marked.pdf"), 0, false, true), 0) << doc.LastErrorText();
        EXPECT_EQ(RunTool("qpdf --check " + Out("marked.pdf")).exitCode, 0);
        return Out("marked.pdf");
    }
};

/// A number of `word`'s line in the output of pdftotext -bbox.
double BoxValue(const std::string& boxes, const std::string& word, const std::string& name)
{
    const std::size_t end = boxes.find(">" + word + "<");
    if (end == std::string::npos) {
        return std::nan("");
    }
    const std::size_t begin = boxes.rfind("<word", end);
    const std::size_t at = boxes.find(name + "=\"", begin);
    return std::strtod(boxes.c_str() + at + name.size() + 2, nullptr);
}

TEST_F(MarksTest, StampsStandAtTheirPointByJustification)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "Sheet");
    EXPECT_EQ(doc->AddTextStampMark(0, 200, 300, "LEFTSTAMP", "Helvetica", 24, 0x0000FF, 0), 0);
    EXPECT_EQ(doc->AddTextStampMark(0, 200, 250, "MIDSTAMP", "Times-BoldItalic", 18, 0x00FF00, 1), 0);
    EXPECT_EQ(doc->AddTextStampMark(0, 200, 200, "RIGHTSTAMP", "Courier", 10, 0xFF0000, 2), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 3);
    const std::string pdf = Save(*doc);
    EXPECT_EQ(m_reports.at(0).marksDrawn, 3U);
    EXPECT_EQ(m_reports.at(0).marksNotDrawn, 0U);
    EXPECT_EQ(m_notes, Names{});
    const std::string boxes = RunTool("pdftotext -bbox " + pdf + " -").output;
    EXPECT_NEAR(BoxValue(boxes, "LEFTSTAMP", "xMin"), 200, 1) << boxes;
    EXPECT_NEAR((BoxValue(boxes, "MIDSTAMP", "xMin") + BoxValue(boxes, "MIDSTAMP", "xMax")) / 2, 200, 1);
    EXPECT_NEAR(BoxValue(boxes, "RIGHTSTAMP", "xMax"), 200, 1);
    EXPECT_NEAR(BoxValue(boxes, "RIGHTSTAMP", "xMin"), 140, 1) << "ten characters of 0.6 x 10 points";
    EXPECT_EQ(RunTool("mutool draw -q -F trace " + pdf + " 1 | grep -c 'color=\"1 0 0\"'").output, "2\n")
        << "the stamp and the page's own bar are red";
}

TEST_F(MarksTest, StampTextOutsideTheFontKeepsItsMeaningAndIsReported)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "Sheet");
    doc->AddTextStampMark(0, 50, 300, "Größe (20 €) \\ ok", "Arial, Bold", 12, 0, 0);
    doc->AddTextStampMark(0, 50, 200, "A ≤ 中", "No Such Font", 0, 0, 0);
    const std::string pdf = Save(*doc);
    EXPECT_EQ(m_notes,
              (Names{"Page 1: the text stamp's font \"No Such Font\" isn't a standard font; Helvetica takes its place",
                     "Page 1: the text stamp \"A ≤ 中\" has characters that Helvetica lacks; stand-ins are shown for "
                     "them",
                     "Page 1: the text stamp's font size 0 can't be used; it is 12 points"}));
    const std::string text = RunTool("pdftotext " + pdf + " -").output;
    EXPECT_NE(text.find("Größe (20 €) \\ ok"), std::string::npos) << text;
    EXPECT_NE(text.find("A ≤ 中"), std::string::npos) << text;
    const std::string shown = RunTool("mutool show -b " + pdf + " pages/1/Contents/3").output;
    EXPECT_NE(shown.find("(A <= \\\\U+4E2D) Tj"), std::string::npos) << shown;
}

TEST_F(MarksTest, LinksLeadToAddressesAndToSheets)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "Ground floor");
    doc->AddLinkMark(0, 100, 220, 50, 200, "https://example.org/a b?ü");
    doc->AddLinkMark(0, 10, 10, 20, 20, "details/d1.pdf");
    doc->AddLinkMark(0, 30, 30, 40, 40, "#Upper floor");
    doc->AddLinkMark(0, 60, 60, 70, 70, "#Cellar");
    AddSheet(*doc, "Upper floor");
    const std::string pdf = Save(*doc);
    EXPECT_EQ(RunTool("pdfinfo -url " + pdf).output, "Page  Type          URL\n"
                                                     "   1  Annotation    https://example.org/a%20b?%C3%BC\n"
                                                     "   1  Annotation    details/d1.pdf\n"
                                                     "   1  Annotation    #Cellar\n");
    EXPECT_EQ(m_notes, Names{"Page 1: the link to \"Cellar\" leads nowhere: the document has no sheet of that name"});
    EXPECT_EQ(RunTool("mutool show " + pdf + " pages/1/Annots/1/Rect").output, "[ 50 200 100 220 ]\n");
    const std::string target = RunTool("mutool show " + pdf + " pages/1/Annots/3/Dest/1/Contents").output;
    EXPECT_EQ(target, RunTool("mutool show " + pdf + " pages/2/Contents").output);
}

TEST_F(MarksTest, AttachmentsComeBackByteForByte)
{
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += static_cast<char>(i % 977 * (i % 751) % 251);
    }
    WriteFile(Out("Übersicht.bin"), bytes);
    WriteFile(Out("gone.txt"), "x");
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "Sheet");
    bool added = false;
    EXPECT_EQ(doc->AddAttachmentMark(0, 100, 100, Out("Übersicht.bin"), added), 0);
    EXPECT_EQ(doc->AddAttachmentMark(0, 150, 100, Out("gone.txt"), added), 0);
    std::filesystem::remove(Out("gone.txt"));
    const std::string pdf = Save(*doc);
    EXPECT_EQ(RunTool("pdfdetach -list " + pdf).output, "2 embedded files\n1: Übersicht.bin\n2: Übersicht.bin\n");
    EXPECT_EQ(RunTool("pdfdetach -save 1 -o " + Out("back.bin") + " " + pdf).exitCode, 0);
    EXPECT_TRUE(ReadFile(Out("back.bin")) == bytes);
    EXPECT_EQ(m_notes,
              Names{"Page 1: the file " + Out("gone.txt") + " could not be attached: it can't be read any more"});
    EXPECT_EQ(m_reports.at(0).marksDrawn, 1U);
    EXPECT_EQ(m_reports.at(0).marksNotDrawn, 1U);
}

TEST_F(MarksTest, SignatureFieldsAreUnsignedAndUniquelyNamed)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "One");
    doc->AddSignatureFieldMark(0, 300, 90, 200, 40, "Approval", "Sign here, chief");
    AddSheet(*doc, "Two");
    doc->AddSignatureFieldMark(0, 20, 20, 120, 60, "Approval", "");
    doc->AddSignatureFieldMark(0, 20, 70, 120, 90, "A.B", "");
    const std::string pdf = Save(*doc);
    const std::string report = RunTool("pdfsig " + pdf).output;
    for (const std::string name : {"Approval", "Approval-2", "A_B"}) {
        EXPECT_NE(report.find("Signature Field Name: " + name + "\n  The signature form field is not signed."),
                  std::string::npos)
            << report;
    }
    EXPECT_EQ(m_notes, (Names{"Page 2: the signature field \"Approval\" is named \"Approval-2\" in the PDF",
                              "Page 2: the signature field \"A.B\" is named \"A_B\" in the PDF"}));
    EXPECT_EQ(RunTool("mutool show " + pdf + " pages/1/Annots/1/Rect").output, "[ 200 40 300 90 ]\n");
    EXPECT_EQ(RunTool("mutool show " + pdf + " pages/1/Annots/1/TU").output, "(Sign here, chief)\n");
}

TEST_F(MarksTest, PropertiesOfAllSheetsAreKept)
{
    const auto doc = Library()->CreatePubDoc();
    doc->SetDocInfo("Creator", "Test");
    AddSheet(*doc, "One");
    doc->AddPropertyMark(0, "TITLE_1/DWG-NO", "A-1");
    doc->AddPropertyMark(0, "TITLE_1/SCALE", "1:50");
    AddSheet(*doc, "Two");
    doc->AddPropertyMark(0, "TITLE_1/DWG-NO", "A-2");
    doc->AddPropertyMark(0, "TITLE_1/SCALE", "1:50");
    doc->AddPropertyMark(0, "TITLE_1/EMPTY", "");
    const std::string pdf = Save(*doc);
    EXPECT_EQ(RunTool("pdfinfo -custom " + pdf + " | grep TITLE").output, "TITLE_1/DWG-NO:  A-1\n"
                                                                          "TITLE_1/DWG-NO (Two):A-2\n"
                                                                          "TITLE_1/SCALE:   1:50\n");
    EXPECT_EQ(m_notes, Names{"Page 2: the property \"TITLE_1/DWG-NO\" has another value on an earlier page; here it is "
                             "named \"TITLE_1/DWG-NO (Two)\""});
    EXPECT_NE(RunTool("pdfinfo -meta " + pdf).output.find(">A-2<"), std::string::npos);
}

TEST_F(MarksTest, OutlineAndPageLabelsShowSheetNamesUnlessSwitchedOff)
{
    for (const bool wanted : {true, false}) {
        m_options.navigation = {wanted, wanted, wanted};
        const auto doc = Library()->CreatePubDoc();
        AddSheet(*doc, "(Grundri\\303\\237 \\(EG\\))");
        ASSERT_EQ(doc->AddPsFile(PostScript("b.ps", "%!\nshowpage\n"), 300, 400, 600, 1, ""), 0);
        doc->SetDocSummary("Title", "", LocalDateTime{}, LocalDateTime{});
        const std::string pdf = Save(*doc);
        EXPECT_EQ(RunTool("mutool show " + pdf + " outline").output.find("Grundriß (EG)") != std::string::npos, wanted);
        EXPECT_EQ(RunTool("mutool show " + pdf + " outline").output.find("Page 2") != std::string::npos, wanted);
        EXPECT_EQ(RunTool("mutool show " + pdf + " trailer/Root/PageLabels/Nums/4/P").output == "(Page 2)\n", wanted);
        EXPECT_EQ(RunTool("mutool show " + pdf + " trailer/Root/ViewerPreferences/DisplayDocTitle").output == "true\n",
                  wanted);
    }
}

TEST_F(MarksTest, MarksOnAPageWithAUnitOfItsOwnKeepTheirPlace)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "Long", 28800, 1440);
    doc->AddLinkMark(0, 1000, 100, 2000, 200, "x");
    const std::string pdf = Save(*doc);
    EXPECT_EQ(RunTool("mutool show " + pdf + " pages/1/Annots/1/Rect").output, "[ 500 50 1000 100 ]\n");
}

TEST_F(MarksTest, DiscardedMarksAreNotDrawn)
{
    const auto doc = Library()->CreatePubDoc();
    AddSheet(*doc, "One");
    doc->AddLinkMark(0, 1, 1, 2, 2, "kept");
    AddSheet(*doc, "Two");
    doc->AddLinkMark(0, 1, 1, 2, 2, "dropped");
    doc->DiscardPendingMarks();
    EXPECT_EQ(RunTool("pdfinfo -url " + Save(*doc)).output, "Page  Type          URL\n   1  Annotation    kept\n");
}

} // namespace
} // namespace sm::publisher
