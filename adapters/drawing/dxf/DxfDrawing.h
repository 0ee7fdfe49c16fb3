// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing over a DXF file, or over the DXF that a DWG was turned into. For this room only; others see Drawing.h.
#pragma once

#include "drawing/DwgConverter.h"
#include "drawing/Finding.h"
#include "write/RecordPatch.h"
#include "write/RecordsFile.h"

#include <memory>
#include <mutex>

namespace sm::drawing {

class DxfDrawing final : public Drawing {
public:
    /// With `records`, these stand over those of the model, and `Save` writes them instead of the drawing.
    explicit DxfDrawing(std::unique_ptr<Model> model, DwgOptions dwg = {},
                        std::optional<RecordsFile> records = std::nullopt);

    [[nodiscard]] const std::string& Path() const override { return m_model->path; }
    [[nodiscard]] const DwgOptions& Dwg() const override { return m_dwg; }
    [[nodiscard]] Version FileVersion() const override { return m_model->version; }
    [[nodiscard]] bool IsBinary() const override { return m_model->source.format != TagFormat::Ascii; }
    [[nodiscard]] const std::string& CodePage() const override { return m_model->codePage; }

    [[nodiscard]] double HeaderReal(std::string_view name, double fallback) const override;
    [[nodiscard]] std::int32_t HeaderInteger(std::string_view name, std::int32_t fallback) const override;
    [[nodiscard]] std::string HeaderText(std::string_view name, const std::string& fallback) const override;
    [[nodiscard]] std::optional<Vec3> HeaderPoint(std::string_view name) const override;

    [[nodiscard]] const std::vector<Layer>& Layers() const override { return m_model->layers; }
    [[nodiscard]] const std::vector<Linetype>& Linetypes() const override { return m_model->linetypes; }
    [[nodiscard]] const std::vector<TextStyle>& TextStyles() const override { return m_model->styles; }
    [[nodiscard]] const std::vector<NamedView>& Views() const override { return m_model->views; }
    [[nodiscard]] const std::vector<std::string>& ApplicationNames() const override { return m_model->applications; }
    [[nodiscard]] std::optional<ModelView> ActiveModelView() const override { return m_model->modelView; }

    [[nodiscard]] const std::vector<Block>& Blocks() const override { return m_model->blocks; }
    [[nodiscard]] std::uint32_t FindBlock(std::string_view name) const override;
    [[nodiscard]] std::span<const EntityRecord> EntitiesOf(std::uint32_t block) const override;
    [[nodiscard]] const EntityRecord* FindEntity(Handle handle) const override;
    [[nodiscard]] std::uint64_t RecordIndex(const EntityRecord& record) const override;
    [[nodiscard]] std::string_view EntityName(const EntityRecord& record) const override;
    [[nodiscard]] std::uint64_t EntityCount() const override { return m_model->records.size(); }

    [[nodiscard]] const std::vector<Layout>& Layouts() const override { return m_model->layouts; }
    [[nodiscard]] std::size_t ActiveLayout() const override { return m_model->activeLayout; }
    [[nodiscard]] const std::vector<PlotSettings>& PageSetups() const override { return m_model->pageSetups; }
    [[nodiscard]] const std::vector<ImageDefinition>& ImageDefinitions() const override { return m_model->images; }
    [[nodiscard]] const std::vector<PlotStyleName>& PlotStyleNames() const override { return m_model->plotStyles; }
    [[nodiscard]] FrameSettings Frames() const override { return m_model->frames; }
    [[nodiscard]] const std::vector<Finding>& Findings() const override;

    [[nodiscard]] std::vector<XDataItem> RecordOf(const std::string& application) const override;
    void SetRecord(const std::string& application, const std::vector<XDataItem>& items) override;
    [[nodiscard]] bool Modified() const override { return m_modified; }
    void Save(bool keepBackup) override;
    [[nodiscard]] std::unique_ptr<Drawing> Twin() const override;
    /// Records stand in a file of their own.
    [[nodiscard]] bool HasRecordsFile() const { return m_records.has_value(); }
    [[nodiscard]] const Source& Tags() const override { return m_model->source; }

private:
    /// For a twin.
    DxfDrawing(std::shared_ptr<Model> model, DwgOptions dwg, std::optional<RecordsFile> records, RecordChanges changes);
    void IndexHandles() const;
    void IndexPlaces() const;

    std::shared_ptr<Model> m_model; ///< shared by twins: nothing but its findings changes, under its lock
    DwgOptions m_dwg;
    std::optional<RecordsFile> m_records;
    RecordChanges m_changes; ///< since the file was read, saved or not
    FileStamp m_stamp;       ///< of the file as it was read or saved last
    bool m_modified = false, m_isTwin = false;
    mutable FindingList m_findings; ///< the model's, as they were asked for last
    mutable std::once_flag m_handlesOnce, m_placesOnce;
    mutable std::unordered_map<Handle, std::size_t> m_handles;
    mutable std::unordered_map<std::uint64_t, std::size_t> m_places; ///< record's first byte → index
};

/// Reads the whole model. Throws DrawingError when nothing is usable.
std::unique_ptr<Model> ReadModel(FileBytes bytes, const std::string& path);

/// A DWG of R9 or later that lies in memory, for tests. Throws DrawingError as Drawing::Open does, and for other bytes.
std::unique_ptr<Drawing> OpenDwgBytes(std::string bytes, const std::string& name);

} // namespace sm::drawing
