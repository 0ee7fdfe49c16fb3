// SPDX-License-Identifier: GPL-3.0-or-later
// Plotting takes no memory for a single entity: twice as many entities take no more allocations.
#include "drawing/Drawing.h"
#include "postscript/PsWriter.h"
#include "render/FrontEnd.h"
#include "render/TextLayout.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {
std::size_t allocations = 0;
}

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* place = std::malloc(size == 0 ? 1 : size)) {
        return place;
    }
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* place) noexcept
{
    std::free(place);
}
void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}

namespace sm::plotter {
namespace {

struct AllocationRow {
    const char* name;
    const char* entity; ///< its tags; "@" stands for a coordinate that differs
};

std::string Drawn(const AllocationRow& row, int count)
{
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < count; ++i) {
        for (const char* c = row.entity; *c != '\0'; ++c) {
            text += *c == '@' ? std::to_string(i % 500) : std::string(1, *c);
        }
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

/// Allocations of plotting that many entities of a kind.
std::size_t AllocationsFor(const AllocationRow& row, int count)
{
    const auto drawing = drawing::Drawing::FromBytes(Drawn(row, count), "many.dxf");
    const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    render::RenderReport report(*drawing);
    PsWriter writer(1200, testing::TempDir());
    render::Scene scene{*drawing, drawing->Layouts().front().block, {}, {}, {{0, 0}, {1000, 1000}}};
    const std::size_t before = allocations;
    render::RenderScene(scene, writer, *text, report);
    writer.Finish();
    const std::size_t taken = allocations - before;
    EXPECT_EQ(report.Count(render::Outcome::Drawn), static_cast<std::uint64_t>(count));
    return taken;
}

TEST(Allocations, DoNotGrowWithTheNumberOfEntities)
{
    for (const AllocationRow& row : std::vector<AllocationRow>{
             {"line", "0\nLINE\n8\n0\n10\n@\n20\n5\n11\n9\n21\n@\n"},
             {"polyline", "0\nLWPOLYLINE\n8\n0\n90\n3\n70\n1\n10\n@\n20\n5\n10\n9\n20\n@\n42\n0.5\n10\n7\n20\n8\n"},
             {"circle", "0\nCIRCLE\n8\n0\n10\n@\n20\n5\n40\n3\n"},
             {"arc", "0\nARC\n8\n0\n10\n@\n20\n5\n40\n3\n50\n10\n51\n200\n"},
             {"ellipse", "0\nELLIPSE\n8\n0\n10\n@\n20\n5\n11\n3\n21\n1\n40\n0.5\n41\n0\n42\n4\n"},
             {"solid", "0\nSOLID\n8\n0\n10\n@\n20\n5\n11\n9\n21\n@\n12\n7\n22\n8\n13\n1\n23\n1\n"},
             {"text", "0\nTEXT\n8\n0\n10\n@\n20\n5\n40\n2.5\n1\nitem @ of many more items\n"},
         }) {
        AllocationsFor(row, 100); // what is kept for the whole process
        const std::size_t some = AllocationsFor(row, 2000), twice = AllocationsFor(row, 4000);
        EXPECT_GT(some, 0U) << row.name;
        EXPECT_LT(twice, some + 40) << row.name << ": " << some;
    }
}

} // namespace
} // namespace sm::plotter
