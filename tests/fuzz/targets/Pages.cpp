// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/targets/Pages.h"

#include "dialect/DialectFontObjects.h"
#include "dialect/PdfLayers.h"
#include "drawing/Drawing.h"
#include "drawing/EntityKinds.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Scratch.h"
#include "plotter/Plotter.h"
#include "render/FrontEnd.h"
#include "render/TextLayout.h"

#include <algorithm>

namespace sm::fuzz {

namespace {

/// Work that an input may ask for.
constexpr std::uint64_t kMostEntities = 300;

render::TextEngine& Text()
{
    static const auto kText = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    return *kText;
}

/// What bounds are asked for, without unfolding inserts, whose bounds have no budget of their own.
Box2 BoxOfSpace(const drawing::Drawing& drawing, std::uint32_t block)
{
    Box2 box;
    for (const drawing::EntityRecord& record : drawing.EntitiesOf(block)) {
        using drawing::EntityKind;
        if (record.kind == EntityKind::Insert || record.kind == EntityKind::Dimension ||
            record.kind == EntityKind::Table)
            continue;
        const Box2 one = render::BoundsOf(drawing, record, Text());
        if (!one.Empty()) {
            box.Add(one.min);
            box.Add(one.max);
        }
    }
    return box;
}

} // namespace

std::vector<std::string> PlotPages(std::string_view dxf, bool keepLayers, std::size_t most)
{
    const auto drawing = drawing::Drawing::FromBytes(std::string(dxf), "plan.dxf");
    std::vector<std::string> pages;
    for (const drawing::Layout& layout : drawing->Layouts()) {
        if (pages.size() == most)
            break;
        render::RenderReport report(*drawing);
        plotter::PlotJob job{*drawing, layout, layout.plot, 1200, layout.name, "fuzz"};
        job.keepLayers = keepLayers;
        job.expansion = kMostEntities;
        job.extents = [&](const render::Matrix3&) { return BoxOfSpace(*drawing, layout.block); };
        const std::string path = ScratchFolder() + "/page.ps";
        (void)plotter::PlotToPostScript(job, path, Text(), report);
        std::uint64_t outcomes = 0;
        for (const auto outcome : {render::Outcome::NotReached, render::Outcome::Hidden, render::Outcome::OffPage,
                                   render::Outcome::NotDrawn, render::Outcome::Drawn})
            outcomes += report.Count(outcome);
        if (outcomes != drawing->EntityCount())
            Fail("each entity has an outcome");
        pages.push_back(ReadScratch(path));
    }
    return pages;
}

bool MakePage(publisher::DialectPage page)
{
    const std::string whole(page.body);
    const auto facts = publisher::CheckDialectBody(page.body, page.pictures.size());
    if (!facts)
        return false;
    std::string joined;
    for (const std::string_view part : publisher::CutDialectBody(page.body, 50)) {
        if (!publisher::CheckDialectBody(part, page.pictures.size()))
            Fail("each part of a body in the dialect is in it");
        joined += part;
    }
    if (joined != whole)
        Fail("the parts of a body are the body");
    if (!std::ranges::all_of(facts->layers, [&](std::uint32_t layer) { return page.layers.contains(layer); }))
        return false;
    QPDF pdf;
    pdf.emptyPDF();
    publisher::FontObjects fonts(pdf);
    publisher::DialectPictureObjects pictures(pdf);
    for (const publisher::DialectFont& font : page.fonts)
        if (fonts.Font(font).isNull())
            return false;
    auto resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/XObject", pictures.Resources(page.pictures));
    publisher::AddNamedResources(pdf, resources, page.layers, facts->opacities);
    fonts.Finish();
    return true;
}

} // namespace sm::fuzz
