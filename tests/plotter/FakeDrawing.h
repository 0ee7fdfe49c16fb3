// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing of a few facts, for placing layouts without a file.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DwgConverter.h"
#include "drawing/Finding.h"

#include <map>

namespace sm::plotter {

class FakeDrawing : public drawing::Drawing {
public:
    std::map<std::string, std::int32_t, std::less<>> integers;
    std::map<std::string, Vec3, std::less<>> points;
    std::vector<drawing::NamedView> views;
    std::optional<drawing::ModelView> active;
    std::vector<drawing::TextStyle> styles;

    const std::string& Path() const override { return m_text; }
    drawing::Version FileVersion() const override { return drawing::Version::R2018; }
    bool IsBinary() const override { return false; }
    const std::string& CodePage() const override { return m_text; }
    double HeaderReal(std::string_view, double fallback) const override { return fallback; }
    std::int32_t HeaderInteger(std::string_view name, std::int32_t fallback) const override
    {
        const auto found = integers.find(name);
        return found == integers.end() ? fallback : found->second;
    }
    std::string HeaderText(std::string_view, const std::string& fallback) const override { return fallback; }
    std::optional<Vec3> HeaderPoint(std::string_view name) const override
    {
        const auto found = points.find(name);
        return found == points.end() ? std::nullopt : std::optional(found->second);
    }
    const std::vector<drawing::Layer>& Layers() const override { return m_layers; }
    const std::vector<drawing::Linetype>& Linetypes() const override { return m_linetypes; }
    const std::vector<drawing::TextStyle>& TextStyles() const override { return styles; }
    const std::vector<drawing::NamedView>& Views() const override { return views; }
    const std::vector<std::string>& ApplicationNames() const override { return m_texts; }
    std::optional<drawing::ModelView> ActiveModelView() const override { return active; }
    const std::vector<drawing::Block>& Blocks() const override { return m_blocks; }
    std::uint32_t FindBlock(std::string_view) const override { return drawing::kNoBlock; }
    std::span<const drawing::EntityRecord> EntitiesOf(std::uint32_t) const override { return {}; }
    const drawing::EntityRecord* FindEntity(drawing::Handle) const override { return nullptr; }
    std::uint64_t RecordIndex(const drawing::EntityRecord&) const override { return 0; }
    std::string_view EntityName(const drawing::EntityRecord&) const override { return {}; }
    std::uint64_t EntityCount() const override { return 0; }
    const std::vector<drawing::Layout>& Layouts() const override { return m_layouts; }
    std::size_t ActiveLayout() const override { return 0; }
    const std::vector<drawing::PlotSettings>& PageSetups() const override { return m_setups; }
    const std::vector<drawing::ImageDefinition>& ImageDefinitions() const override { return m_images; }
    const std::vector<drawing::PlotStyleName>& PlotStyleNames() const override { return m_plotStyles; }
    const std::vector<drawing::Finding>& Findings() const override { return m_findings; }
    const drawing::DwgOptions& Dwg() const override { return m_dwg; }
    std::vector<drawing::XDataItem> RecordOf(const std::string&) const override { return {}; }
    void SetRecord(const std::string&, const std::vector<drawing::XDataItem>&) override {}
    bool Modified() const override { return false; }
    void Save(bool) override {}
    const Source& Tags() const override { throw drawing::DrawingError("no tags"); }

private:
    std::string m_text;
    std::vector<std::string> m_texts;
    std::vector<drawing::Layer> m_layers;
    std::vector<drawing::Linetype> m_linetypes;
    std::vector<drawing::Block> m_blocks;
    std::vector<drawing::Layout> m_layouts;
    std::vector<drawing::PlotSettings> m_setups;
    std::vector<drawing::ImageDefinition> m_images;
    std::vector<drawing::PlotStyleName> m_plotStyles;
    std::vector<drawing::Finding> m_findings;
    drawing::DwgOptions m_dwg;
};

} // namespace sm::plotter
