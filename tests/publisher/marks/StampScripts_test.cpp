// SPDX-License-Identifier: GPL-3.0-or-later
// Stamps that the standard fonts of PDF can't show.
#include "plotter/LineSetter.h"
#include "publisher/PublisherStand.h"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace sm::publisher {
namespace {

using Names = std::vector<std::string>;

/// Sets texts with the plotter, as the program does.
class PlottedTexts final : public IStampTexts {
public:
    StampLine Set(const std::string& text, const StampLook& look) override
    {
        const plotter::BodyLine line = m_setter->Set(text, {look.family, look.bold, look.italic}, look.color);
        return {line.body, line.width};
    }
    std::string Fonts() override { return m_setter->Fonts(); }

private:
    std::unique_ptr<plotter::LineSetter> m_setter =
        plotter::LineSetter::Create(SM_SOURCE_DIR "/share/sheetmaker-pdf", nullptr);
};

class NoTexts final : public IStampTexts {
public:
    StampLine Set(const std::string&, const StampLook&) override { throw std::runtime_error("no libfribidi.so.0"); }
    std::string Fonts() override { return {}; }
};

class StampScriptsTest : public PublisherTest {
protected:
    StampScriptsTest()
    {
        m_options.stampTexts = [] { return std::make_unique<PlottedTexts>(); };
    }
    std::shared_ptr<IPubDoc> NewDocument() { return Library()->CreatePubDoc(); }
    void AddSheet(IPubDoc& doc) { ASSERT_EQ(doc.AddPsFile(NewPage(doc, "1"), 400, 500, 600, 1, ""), 0); }
    std::string Save(IPubDoc& doc)
    {
        EXPECT_EQ(doc.SaveToPdf(Out("stamped.pdf"), 0, false, true), 0) << doc.LastErrorText();
        EXPECT_EQ(RunTool("qpdf --check " + Out("stamped.pdf")).exitCode, 0);
        return Out("stamped.pdf");
    }
};

double Value(const std::string& boxes, const std::string& word, const std::string& name)
{
    const std::size_t end = boxes.find(">" + word + "<");
    const std::size_t begin = end == std::string::npos ? end : boxes.rfind("<word", end);
    const std::size_t at = begin == std::string::npos ? begin : boxes.find(name + "=\"", begin);
    return at == std::string::npos ? std::nan("") : std::strtod(boxes.c_str() + at + name.size() + 2, nullptr);
}

TEST_F(StampScriptsTest, TextsStandAtTheirPointByTheirOwnWidth)
{
    const auto doc = NewDocument();
    AddSheet(*doc);
    doc->AddTextStampMark(0, 200, 300, "МММ", "Helvetica", 20, 0x0000FF, 0);
    doc->AddTextStampMark(0, 200, 250, "ЖЖ", "Times-Bold", 10, 0, 1);
    doc->AddTextStampMark(0, 200, 200, "ДДДД", "Courier", 10, 0, 2);
    const std::string pdf = Save(*doc);
    EXPECT_EQ(m_notes, Names{});
    EXPECT_EQ(m_reports.at(0).marksDrawn, 3U);
    const std::string boxes = RunTool("pdftotext -bbox " + pdf + " -").output;
    EXPECT_NEAR(Value(boxes, "МММ", "xMin"), 200, 0.01) << boxes;
    EXPECT_NEAR(Value(boxes, "МММ", "xMax"), 200 + 3 * 20 * 1706 / 2048.0, 0.05);
    EXPECT_NEAR(Value(boxes, "ЖЖ", "xMin") + Value(boxes, "ЖЖ", "xMax"), 400, 0.05);
    EXPECT_NEAR(Value(boxes, "ДДДД", "xMax"), 200, 0.05);
    EXPECT_NEAR(Value(boxes, "ДДДД", "xMin"), 200 - 4 * 10 * 0.6, 0.05);
    const std::string trace = RunTool("mutool draw -q -F trace " + pdf + " 1").output;
    EXPECT_NE(trace.find("<fill_text colorspace=\"DeviceRGB\" color=\"1 0 0\""), std::string::npos) << trace;
}

TEST_F(StampScriptsTest, PagesShareTheFormOfATextAndTheFontsOfAll)
{
    const auto doc = NewDocument();
    for (const char* text : {"Лист 1", "Лист 2", "Лист 1"}) {
        AddSheet(*doc);
        doc->AddTextStampMark(0, 200, 300, text, "Helvetica", 20, 0, 0);
        doc->AddTextStampMark(0, 200, 200, "Plan", "Helvetica", 20, 0, 0);
    }
    const std::string pdf = Save(*doc);
    const std::string shown = RunTool("qpdf --qdf --object-streams=disable " + pdf + " - | strings").output;
    const auto count = [&](const std::string& part) {
        std::size_t found = 0;
        for (std::size_t at = shown.find(part); at != std::string::npos; at = shown.find(part, at + 1)) {
            ++found;
        }
        return found;
    };
    EXPECT_EQ(count("/Subtype /Form"), 2U);
    EXPECT_EQ(count("/FontFile2 "), 1U);
    EXPECT_EQ(count("/BaseFont /Helvetica"), 1U) << "the standard font of the other stamps";
    for (const char* page : {"1", "2", "3"}) {
        const std::string text = RunTool("pdftotext -f " + std::string(page) + " -l " + page + " " + pdf + " -").output;
        EXPECT_NE(text.find(std::string(page) == "2" ? "Лист 2" : "Лист 1"), std::string::npos) << text;
        EXPECT_NE(text.find("Plan"), std::string::npos) << text;
    }
}

TEST_F(StampScriptsTest, ControlsAreBlanksAndSymbolFontsGiveWay)
{
    const auto doc = NewDocument();
    AddSheet(*doc);
    doc->AddTextStampMark(0, 50, 300, "Ж\nab\tc", "Symbol", 20, 0, 0);
    const std::string text = RunTool("pdftotext " + Save(*doc) + " -").output;
    EXPECT_NE(text.find("Ж ab c"), std::string::npos) << text;
    EXPECT_EQ(m_notes, Names{});
}

TEST_F(StampScriptsTest, StandInsShowATextThatCantBeSet)
{
    m_options.stampTexts = [] { return std::make_unique<NoTexts>(); };
    const auto doc = NewDocument();
    AddSheet(*doc);
    doc->AddTextStampMark(0, 50, 300, "A ≤ Ж", "Helvetica", 20, 0, 0);
    const std::string pdf = Save(*doc);
    EXPECT_EQ(m_notes,
              Names{"Page 1: the text stamp \"A ≤ Ж\" has characters that Helvetica lacks; stand-ins are shown "
                    "for them (no libfribidi.so.0)"});
    EXPECT_NE(RunTool("mutool show -b " + pdf + " pages/1/Contents/3").output.find("(A <= \\\\U+0416) Tj"),
              std::string::npos);
}

} // namespace
} // namespace sm::publisher
