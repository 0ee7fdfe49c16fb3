// SPDX-License-Identifier: GPL-3.0-or-later
#include "dxf/DxfDrawing.h"

#include "converter/DwgConversion.h"
#include "drawing/EntityKinds.h"
#include "dwg/old/OldDrawing.h"
#include "dwg/read/ReadDwg.h"
#include "entities/EntityTags.h"
#include "tags/FileKind.h"

#include <stdexcept>

namespace sm::drawing {

namespace {

/// A file that breaks off before its first block or entity would give a blank sheet, which nobody wants for an answer.
bool IsUsable(const Model& model)
{
    const Structure& found = model.structure;
    const bool drawn =
        !found.modelEntities.empty() || !found.paperEntities.empty() || !found.blocks.empty() || !found.objects.empty();
    const bool prepared = !found.tableEntries.empty() || !found.variables.empty();
    return drawn || (prepared && !model.findings.Has(Damage::NoEnd));
}

void BuildAll(Model& model)
{
    BuildHeader(model);
    BuildDictionaries(model);
    BuildStyles(model);
    BuildLinetypes(model);
    BuildPlotStyles(model);
    BuildLayers(model);
    BuildLayerOverrides(model);
    BuildViews(model);
    BuildBlocks(model);
    BuildNotes(model);
    BuildObjects(model);
    BuildLayouts(model);
    BuildDrawOrder(model);
}

} // namespace

std::unique_ptr<Model> ReadModel(FileBytes bytes, const std::string& path)
{
    const DxfKind kind = RecogniseDxf(bytes.View(), path);
    auto model = std::make_unique<Model>(std::move(bytes), kind.format);
    model->path = path;
    const std::string_view file = model->source.File();
    model->structure = ScanStructure(file, kind.format, kind.begin, model->findings);
    model->source.objectList = &model->structure.objects;
    if (!IsUsable(*model))
        ThrowNothingUsable(file, path, model->structure.tags);
    BuildAll(*model);
    return model;
}

namespace {

bool IsNativeDwg(std::string_view bytes)
{
    const DwgForm form = FormOfDwg(bytes);
    return form == DwgForm::Records || form == DwgForm::Objects;
}

dwg::DwgTags ReadOldTags(const FileBytes& bytes, const std::string& path, FindingList& findings)
{
    dwg::DecodedTags tags = dwg::ReadOldDrawing(bytes.View(), path, findings);
    return {FileBytes::Keep(std::string(tags.bytes)), std::move(tags.structure), std::move(tags.names), nullptr};
}

std::unique_ptr<Model> ReadDwgModel(const FileBytes& bytes, const std::string& path)
{
    FindingList findings;
    dwg::DwgTags tags = FormOfDwg(bytes.View()) == DwgForm::Records ? ReadOldTags(bytes, path, findings)
                                                                    : dwg::ReadDwg(bytes, path, findings);
    auto model = std::make_unique<Model>(std::move(tags.bytes), TagFormat::BinaryLong);
    model->source.late = std::move(tags.late);
    model->path = path;
    model->structure = std::move(tags.structure);
    model->names = std::move(tags.names);
    model->findings = std::move(findings);
    model->source.objectList = &model->structure.objects;
    if (!IsUsable(*model))
        ThrowNothingUsable(bytes.View(), path, model->structure.tags);
    BuildAll(*model);
    return model;
}

/// A DXF without a named-object dictionary (R12 and older) holds no records: they stand beside it, as those of a DWG.
std::unique_ptr<Drawing> OpenDxf(std::unique_ptr<Model> model, const std::string& path, const DwgOptions& dwg)
{
    std::optional<RecordsFile> records;
    if (!model->hasRoot)
        records.emplace(path);
    return std::make_unique<DxfDrawing>(std::move(model), dwg, std::move(records));
}

} // namespace

std::string RecordsFileOf(const Drawing& drawing)
{
    const auto* const file = dynamic_cast<const DxfDrawing*>(&drawing);
    return file != nullptr && file->HasRecordsFile() ? drawing.Path() + kRecordsEnding : drawing.Path();
}

std::unique_ptr<Drawing> Drawing::Open(const std::string& path)
{
    return Open(path, DwgOptions());
}

std::unique_ptr<Drawing> Drawing::Open(const std::string& path, const DwgOptions& dwg)
{
    FileBytes bytes = FileBytes::Map(path);
    if (DwgRelease(bytes.View()).empty())
        return OpenDxf(ReadModel(std::move(bytes), path), path, dwg);
    RecordsFile records(path);
    if (dwg.converter.empty() && IsNativeDwg(bytes.View()))
        return std::make_unique<DxfDrawing>(ReadDwgModel(bytes, path), dwg, std::move(records));
    FindingList lost;
    auto model = ReadModel(ConvertDwg(bytes, path, dwg, lost), path);
    model->findings.Join(lost);
    return std::make_unique<DxfDrawing>(std::move(model), dwg, std::move(records));
}

std::unique_ptr<Drawing> OpenDwgBytes(std::string bytes, const std::string& name)
{
    if (!IsNativeDwg(bytes))
        throw DrawingError(name + ": this is no DWG of a release that is read without a converter");
    return std::make_unique<DxfDrawing>(ReadDwgModel(FileBytes::Keep(std::move(bytes)), name));
}

std::unique_ptr<Drawing> Drawing::FromBytes(std::string bytes, const std::string& name)
{
    if (bytes.empty())
        throw DrawingError(name + ": the file is empty; save the drawing again");
    return std::make_unique<DxfDrawing>(ReadModel(FileBytes::Keep(std::move(bytes)), name));
}

DxfDrawing::DxfDrawing(std::unique_ptr<Model> model, DwgOptions dwg, std::optional<RecordsFile> records)
    : m_model(std::move(model)), m_dwg(std::move(dwg)), m_records(std::move(records)),
      m_stamp(m_model->source.bytes.Stamp())
{
}

DxfDrawing::DxfDrawing(std::shared_ptr<Model> model, DwgOptions dwg, std::optional<RecordsFile> records,
                       RecordChanges changes)
    : m_model(std::move(model)), m_dwg(std::move(dwg)), m_records(std::move(records)), m_changes(std::move(changes)),
      m_isTwin(true)
{
}

std::unique_ptr<Drawing> DxfDrawing::Twin() const
{
    return std::unique_ptr<Drawing>(new DxfDrawing(m_model, m_dwg, m_records, m_changes));
}

double DxfDrawing::HeaderReal(std::string_view name, double fallback) const
{
    return m_model->header.Real(name, fallback);
}

std::int32_t DxfDrawing::HeaderInteger(std::string_view name, std::int32_t fallback) const
{
    return m_model->header.Integer(name, fallback);
}

std::string DxfDrawing::HeaderText(std::string_view name, const std::string& fallback) const
{
    const auto raw = m_model->header.RawText(name);
    return raw ? m_model->Text(*raw) : fallback;
}

std::optional<Vec3> DxfDrawing::HeaderPoint(std::string_view name) const
{
    return m_model->header.Point(name);
}

const std::vector<Finding>& DxfDrawing::Findings() const
{
    const std::lock_guard lock(m_model->findingsLock);
    const LateTags::Lost lost = m_model->source.late != nullptr ? m_model->source.late->TakeLost() : LateTags::Lost();
    if (lost.entities > 0)
        m_model->findings.Add(Damage::EntityDamaged, 1, lost.entities);
    if (lost.objects > 0)
        m_model->findings.Add(Damage::ObjectDamaged, 1, lost.objects);
    if (const UnreadNumbers::Lines lines = m_model->source.unreadNumbers.TakeNew(); lines.count > 0)
        m_model->findings.Add(Damage::NotANumber, lines.first, lines.count);
    m_findings = m_model->findings;
    return m_findings.All();
}

std::uint32_t DxfDrawing::FindBlock(std::string_view name) const
{
    return m_model->source.blocks.FindUtf8(name).value_or(kNoBlock);
}

std::span<const EntityRecord> DxfDrawing::EntitiesOf(std::uint32_t block) const
{
    if (block >= m_model->spans.size())
        return {};
    const RecordSpan& span = m_model->spans[block];
    return std::span(m_model->records).subspan(span.first, span.count);
}

void DxfDrawing::IndexHandles() const
{
    m_handles.reserve(m_model->records.size());
    for (std::size_t i = 0; i < m_model->records.size(); ++i) {
        if (const Handle handle = HandleOf(m_model->source, m_model->records[i]); handle != 0)
            m_handles.emplace(handle, i);
    }
}

const EntityRecord* DxfDrawing::FindEntity(Handle handle) const
{
    std::call_once(m_handlesOnce, [this] { IndexHandles(); });
    const auto found = m_handles.find(handle);
    return found == m_handles.end() ? nullptr : &m_model->records[found->second];
}

void DxfDrawing::IndexPlaces() const
{
    m_places.reserve(m_model->records.size());
    for (std::size_t i = 0; i < m_model->records.size(); ++i)
        m_places.emplace(m_model->records[i].begin, i);
}

std::uint64_t DxfDrawing::RecordIndex(const EntityRecord& record) const
{
    const std::vector<EntityRecord>& records = m_model->records;
    const std::less<const EntityRecord*> before;
    if (!records.empty() && !before(&record, records.data()) && before(&record, records.data() + records.size()))
        return static_cast<std::uint64_t>(&record - records.data());
    // A copy: found by its place in the file.
    std::call_once(m_placesOnce, [this] { IndexPlaces(); });
    const auto found = m_places.find(record.begin);
    return found == m_places.end() ? records.size() : found->second;
}

std::string_view DxfDrawing::EntityName(const EntityRecord& record) const
{
    const auto& names = m_model->structure.unknownNames;
    if (record.nameIndex != 0 && record.nameIndex < names.size())
        return names[record.nameIndex];
    return KindName(record.kind);
}

} // namespace sm::drawing
