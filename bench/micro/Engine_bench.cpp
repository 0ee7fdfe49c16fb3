// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and plotting of synthetic drawings, part by part.
//
//     build/release/bench/micro DRAWING...        (bench/make_drawing.py makes some)

#include "drawing/Drawing.h"
#include "plotter/Plotter.h"
#include "render/FrontEnd.h"
#include "render/TextLayout.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

using namespace sm;

/// A canvas that only counts: what is left is the front end's own cost.
class CountingCanvas final : public render::ICanvas {
public:
    std::uint64_t calls = 0;
    void PushClip(const render::Path&, render::FillRule) override {}
    void PopClip() override {}
    void Stroke(const render::Path&, const render::StrokeStyle&) override { ++calls; }
    void Fill(const render::Path&, std::uint32_t, render::FillRule) override { ++calls; }
    void Text(const render::TextRun&) override { ++calls; }
};

void PerEntity(benchmark::State& state, const drawing::Drawing& drawing)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(drawing.EntityCount()) * state.iterations());
}

void Reading(benchmark::State& state, const std::string& path)
{
    std::unique_ptr<drawing::Drawing> opened;
    for (auto _ : state)
        opened = drawing::Drawing::Open(path);
    PerEntity(state, *opened);
    state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(path)) * state.iterations());
}

void Rendering(benchmark::State& state, const std::string& path)
{
    const auto opened = drawing::Drawing::Open(path);
    const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    for (auto _ : state) {
        CountingCanvas canvas;
        render::RenderReport report(*opened);
        const drawing::Layout& model = opened->Layouts().front();
        const render::Scene scene{*opened, model.block, {},    {}, {{-1e9, -1e9}, {1e9, 1e9}}, false, true,
                                  1,       true,        false, 1};
        render::RenderScene(scene, canvas, *text, report);
        benchmark::DoNotOptimize(canvas.calls);
    }
    PerEntity(state, *opened);
}

void Plotting(benchmark::State& state, const std::string& path)
{
    const auto opened = drawing::Drawing::Open(path);
    const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    const std::string output = (std::filesystem::temp_directory_path() / "sheetmaker-micro.ps").string();
    for (auto _ : state) {
        render::RenderReport report(*opened);
        const drawing::Layout& model = opened->Layouts().front();
        drawing::PlotSettings settings;
        settings.paperWidth = 420;
        settings.paperHeight = 297;
        settings.plotType = 1;
        settings.flags = drawing::PlotSettings::kStandardScale | drawing::PlotSettings::kLineweights;
        plotter::PlotToPostScript({*opened, model, settings, 1200, "bench", "bench", {}}, output, *text, report);
    }
    PerEntity(state, *opened);
    std::remove(output.c_str());
}

} // namespace

int main(int count, char** words)
{
    for (int i = 1; i < count; ++i) {
        const std::string path = words[i];
        if (path.starts_with("--"))
            continue;
        const std::string name = std::filesystem::path(path).filename().string();
        benchmark::RegisterBenchmark(("read/" + name).c_str(), Reading, path)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("render/" + name).c_str(), Rendering, path)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("plot/" + name).c_str(), Plotting, path)->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&count, words);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
