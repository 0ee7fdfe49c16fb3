// SPDX-License-Identifier: GPL-3.0-or-later
// Layers as optional content groups: one of each name and state, in order, with their states.
#include "dialect/PdfLayers.h"

#include <gmock/gmock.h>

namespace sm::publisher {
namespace {

using ::testing::ElementsAre;
using State = DialectLayer::State;
using Layers = std::map<std::uint32_t, DialectLayer>;

class PdfLayers : public ::testing::Test {
protected:
    PdfLayers() { m_pdf.emptyPDF(); }

    QPDFObjectHandle AddPage(const Layers& layers, const std::set<std::uint32_t>& opacities = {})
    {
        auto page = m_pdf.makeIndirectObject(QPDFObjectHandle::parse("<</Type/Page/Resources<<>>>>"));
        AddNamedResources(m_pdf, page.getKey("/Resources"), layers, opacities);
        QPDFPageDocumentHelper(m_pdf).addPage(QPDFPageObjectHelper(page), false);
        return page;
    }
    static std::vector<std::string> Names(QPDFObjectHandle groups)
    {
        std::vector<std::string> names;
        for (auto& group : groups.getArrayAsVector())
            names.push_back(group.getKey("/Name").getUTF8Value());
        return names;
    }
    QPDFObjectHandle States() { return m_pdf.getRoot().getKey("/OCProperties").getKey("/D"); }

    QPDF m_pdf;
};

TEST_F(PdfLayers, OfAllPagesAreListedOnceByName)
{
    auto one = AddPage({{1, {State::On, "Walls"}}, {2, {State::Off, "axes"}}});
    auto two = AddPage({{7, {State::On, "Walls"}}, {8, {State::NotPlotted, "Screen"}}, {9, {State::Off, "Walls"}}});
    WriteLayers(m_pdf);
    const auto group = [](QPDFObjectHandle page, const char* name) {
        return page.getKey("/Resources").getKey("/Properties").getKey(name).getObjGen();
    };
    EXPECT_EQ(group(one, "/L1"), group(two, "/L7"));
    EXPECT_NE(group(one, "/L1"), group(two, "/L9"));
    EXPECT_THAT(Names(States().getKey("/Order")), ElementsAre("axes", "Screen", "Walls", "Walls"));
    EXPECT_THAT(Names(States().getKey("/OFF")), ElementsAre("axes", "Screen", "Walls"));
    EXPECT_EQ(m_pdf.getRoot().getKey("/OCProperties").getKey("/OCGs").getArrayNItems(), 4);
}

TEST_F(PdfLayers, ThatAreNotPlottedStayOffInPrint)
{
    auto page = AddPage({{8, {State::NotPlotted, "Screen"}}});
    WriteLayers(m_pdf);
    EXPECT_EQ(page.getKey("/Resources").getKey("/Properties").getKey("/L8").unparseResolved(),
              "<< /Name (Screen) /Type /OCG /Usage << /Print << /PrintState /OFF >> >> >>");
    auto event = States().getKey("/AS").getArrayItem(0);
    EXPECT_EQ(event.getKey("/Event").getName(), "/Print");
    EXPECT_THAT(Names(event.getKey("/OCGs")), ElementsAre("Screen"));
}

TEST_F(PdfLayers, AreNotWrittenWithoutAny)
{
    auto page = AddPage({});
    WriteLayers(m_pdf);
    EXPECT_FALSE(m_pdf.getRoot().hasKey("/OCProperties"));
    EXPECT_EQ(page.getKey("/Resources").unparse(), "<< >>");
}

TEST_F(PdfLayers, StandBesideOpacities)
{
    auto page = AddPage({}, {51, 255});
    EXPECT_EQ(page.getKey("/Resources").getKey("/ExtGState").unparse(),
              "<< /A255 << /CA 1 /Type /ExtGState /ca 1 >> /A51 << /CA 0.2 /Type /ExtGState /ca 0.2 >> >>");
}

} // namespace
} // namespace sm::publisher
