// SPDX-License-Identifier: GPL-3.0-or-later
// Where somebody waits for the pages and there is no interpreter, those that need one are refused when they are added.
#include "drawing/Drawing.h"
#include "plotter/Plotter.h"
#include "publisher/PublisherStand.h"
#include "render/RenderReport.h"
#include "render/TextLayout.h"

namespace sm::publisher {
namespace {

const std::string kRemedy = "Ghostscript (\"/no/such/program\") is not installed: PostScript of other programs, and "
                            "job options that turn colours "
                            "or downsample pictures, need it. Install it: sudo apt-get install ghostscript";
const std::string kGrey = SM_SOURCE_DIR "/share/sheetmaker-pdf/Settings/Greyscale [600 dpi].joboptions";

class EarlyRefusal : public PublisherTest {
protected:
    EarlyRefusal()
    {
        m_options.refusesEarly = true;
        m_options.interpreter = "/no/such/program";
    }
    /// A page of our own plotter.
    std::string Plotted()
    {
        const auto drawing = drawing::Drawing::Open(SM_SOURCE_DIR "/samples/flange.dxf");
        const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
        const drawing::Layout& layout = drawing->Layouts().front();
        render::RenderReport report(*drawing);
        plotter::PlotToPostScript({*drawing, layout, layout.plot, 1200, layout.name, "test", {}}, Out("plotted.ps"),
                                  *text, report);
        return Out("plotted.ps");
    }
    std::int32_t Add(IPubDoc& doc, const std::string& page, const std::string& jobOptions = "")
    {
        return doc.AddPsFile(page, 300, 400, 600, 1, jobOptions);
    }
};

TEST_F(EarlyRefusal, ForeignPagesAreRefusedWithARemedyAndAreNoPages)
{
    const auto doc = Library()->CreatePubDoc();
    EXPECT_EQ(Add(*doc, PostScript("foreign.ps", "%!\nshowpage\n")), -7);
    EXPECT_EQ(doc->LastErrorText(), kRemedy);
    EXPECT_EQ(doc->RemedyText(), kRemedy);
    EXPECT_EQ(m_notes, std::vector<std::string>{kRemedy});
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, false), -9);
    EXPECT_EQ(doc->RemedyText(), "") << "of another failure";
}

TEST_F(EarlyRefusal, OwnPagesAreRefusedOnlyWithJobOptionsThatNeedTheInterpreter)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string page = Plotted();
    EXPECT_EQ(Add(*doc, page, kGrey), -7);
    EXPECT_EQ(Add(*doc, page), 0) << doc->LastErrorText();
    EXPECT_EQ(doc->RemedyText(), "");
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, false), 0) << doc->LastErrorText();
    EXPECT_EQ(RunTool("qpdf --check " + Out("plan.pdf")).exitCode, 0);
}

TEST_F(EarlyRefusal, WithAnInterpreterEveryPageIsTaken)
{
    m_options.interpreter = "gs";
    const auto doc = Library()->CreatePubDoc();
    EXPECT_EQ(Add(*doc, PostScript("foreign.ps", "%!\nshowpage\n"), kGrey), 0) << doc->LastErrorText();
}

TEST_F(EarlyRefusal, WhereNobodyWaitsTheRemedyIsTheErrorTextsAlone)
{
    m_options.refusesEarly = false;
    const auto doc = Library()->CreatePubDoc();
    EXPECT_EQ(Add(*doc, PostScript("foreign.ps", "%!\nshowpage\n")), 0);
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, false), -7);
    EXPECT_EQ(doc->LastErrorText(), kRemedy);
    EXPECT_EQ(doc->RemedyText(), "");
}

} // namespace
} // namespace sm::publisher
