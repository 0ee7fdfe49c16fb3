// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/ReferenceParts.h"

#include "base/files/Paths.h"
#include "drawing/Drawing.h"
#include "render/RenderReport.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace sm::render {

namespace {

constexpr std::size_t kMostXrefs = 100;
constexpr std::uint64_t kMostXrefBytes = std::uint64_t{2} << 30;
constexpr std::size_t kDeepestReference = 16;

// Group 70 of BLOCK (DXF reference).
constexpr std::int32_t kIsXref = 4, kIsOverlay = 8;

/// Metres of one $INSUNITS unit; 0 for none.
double Metres(std::int32_t unit)
{
    constexpr std::array kUnits{0.0,
                                0.0254,
                                0.3048,
                                1609.344,
                                0.001,
                                0.01,
                                1.0,
                                1000.0,
                                2.54e-8,
                                2.54e-5,
                                0.9144,
                                1e-10,
                                1e-9,
                                1e-6,
                                0.1,
                                10.0,
                                100.0,
                                1e9,
                                1.495978707e11,
                                9.4607304725808e15,
                                3.0856775814914e16,
                                0.3048006096012192,
                                0.0254000508001016,
                                0.9144018288036576,
                                1609.3472186944374};
    return unit > 0 && static_cast<std::size_t>(unit) < kUnits.size() ? kUnits[static_cast<std::size_t>(unit)] : 0;
}

double UnitOf(const drawing::Drawing& xref, const drawing::Drawing& host)
{
    const double its = Metres(xref.HeaderInteger("$INSUNITS", 0)), ours = Metres(host.HeaderInteger("$INSUNITS", 0));
    return its > 0 && ours > 0 ? its / ours : 1;
}

std::uint32_t ModelOf(const drawing::Drawing& drawing)
{
    const drawing::Layout* const model = drawing::ModelLayoutOf(drawing);
    return model == nullptr ? drawing::kNoBlock : model->block;
}

} // namespace

bool References::IsXref(std::uint32_t block) const
{
    const auto& blocks = m_parts->drawing.Blocks();
    return block < blocks.size() && !blocks[block].xrefPath.empty() &&
           (blocks[block].flags & (kIsXref | kIsOverlay)) != 0;
}

bool References::IsOpenAbove(const std::string& path) const
{
    std::error_code error;
    const std::string canonical = base::ToText(std::filesystem::weakly_canonical(base::ToPath(path), error));
    for (const References* at = this; at != nullptr; at = at->m_parts->host) {
        if (at->m_parts->path == (error ? path : canonical)) {
            return true;
        }
    }
    return false;
}

References::Xref* References::XrefOf(std::uint32_t block)
{
    const auto known = m_parts->xrefs.find(block);
    if (known != m_parts->xrefs.end()) {
        return known->second.get();
    }
    std::unique_ptr<Xref> xref = IsXref(block) ? OpenXref(m_parts->drawing.Blocks()[block]) : nullptr;
    return (m_parts->xrefs[block] = std::move(xref)).get();
}

std::unique_ptr<References::Xref> References::OpenXref(const drawing::Block& block)
{
    const std::string name = "the drawing \"" + block.xrefPath + "\" ";
    if (m_parts->host != nullptr && (block.flags & kIsOverlay) != 0) {
        return nullptr; // an overlay shows in its own host alone
    }
    const std::string path = Find(block.xrefPath);
    if (path.empty()) {
        Report(ReferenceFinding::kMissing, name + "is not found; put it beside the drawing");
        return nullptr;
    }
    std::size_t depth = 0;
    for (const References* at = m_parts->host; at != nullptr; at = at->m_parts->host) {
        ++depth;
    }
    if (IsOpenAbove(path) || depth >= kDeepestReference) {
        Report(ReferenceFinding::kLeftOut, name + "refers back to itself; it is shown once", false);
        return nullptr;
    }
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(base::ToPath(path), error);
    Shared& shared = *m_parts->shared;
    if (error || shared.xrefs >= kMostXrefs || size > kMostXrefBytes - shared.xrefBytes) {
        Report(ReferenceFinding::kLeftOut, name + "is left out: too many drawings are referred to");
        return nullptr;
    }
    ++shared.xrefs;
    shared.xrefBytes += size;
    try {
        return OpenXrefFile(block, path);
    } catch (const std::exception& failure) {
        Report(ReferenceFinding::kUnusable, name + "can't be read: " + failure.what());
        return nullptr;
    }
}

std::unique_ptr<References::Xref> References::OpenXrefFile(const drawing::Block& block, const std::string& path)
{
    auto xref = std::make_unique<Xref>();
    xref->prefix = block.name;
    xref->file = drawing::Drawing::Open(path, m_parts->shared->options.dwg);
    xref->references.reset(new References(*xref->file, m_parts->shared, this, path));
    xref->report = std::make_unique<RenderReport>(*xref->file);
    xref->space = ModelOf(*xref->file);
    xref->base = xref->file->HeaderPoint("$INSBASE").value_or(Vec3{});
    xref->unit = UnitOf(*xref->file, m_parts->drawing);
    return xref;
}

} // namespace sm::render
