// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preview.h"

#include "Crowd.h"

#include "beside/PagePane.h"
#include "drawing/Drawing.h"
#include "screen/PagePreview.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace sm::bench {
namespace {

namespace fs = std::filesystem;

/// The drawing in a folder of its own, with no settings of anybody.
class Stand {
public:
    explicit Stand(std::size_t entities)
        : m_folder(fs::temp_directory_path() / ("bench-window-" + std::to_string(getpid())))
    {
        fs::create_directories(m_folder);
        std::ofstream(m_folder / "crowd.dxf", std::ios::binary) << Crowd(entities);
        m_drawing = drawing::Drawing::Open(Path());
    }
    ~Stand()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    Stand(const Stand&) = delete;
    Stand& operator=(const Stand&) = delete;

    [[nodiscard]] std::string Path() const { return (m_folder / "crowd.dxf").string(); }
    [[nodiscard]] app::Install Here() const
    {
        return {[](const std::string&) { return std::optional<std::string>(); },
                {m_folder / "settings", m_folder / "state", SM_SOURCE_DIR "/share/sheetmaker-pdf"},
                "0.0.0"};
    }
    [[nodiscard]] const drawing::Drawing& Drawing() const { return *m_drawing; }

private:
    fs::path m_folder;
    std::unique_ptr<drawing::Drawing> m_drawing;
};

} // namespace

std::vector<double> PreviewTimes(std::size_t entities)
{
    const Stand stand(entities);
    app::PreviewWish wish;
    wish.layout = stand.Drawing().Layouts().at(1).name;
    wish.keg.Layouts.emplace_back();
    wish.keg.PageSetupSelected = kPageSetupCustom;
    PageSetupRecord& setup = wish.keg.Layouts.front().PageSetup;
    setup.CanonicalMediaName = "ISO_A3_(420.00_x_297.00_MM)";
    setup.PlotType = 1; // extents
    app::PagePreview source(
        stand.Path(), stand.Here(), [&] { return std::optional(wish); }, [&] { return stand.Drawing().Twin(); });
    std::vector<double> times;
    constexpr int kChanges = 8;
    for (int i = 0; i <= kChanges; ++i) {
        setup.PlotRotation = i % 2;
        setup.PlotOriginX = i;
        const auto start = std::chrono::steady_clock::now();
        const std::atomic<bool> stop = false;
        if (!source.Renew())
            throw std::runtime_error("the preview found nothing changed");
        const qt::DrawnPreview drawn = qt::DrawPreview(source, stop);
        if (drawn.picture == nullptr || drawn.picture->list.items.size() < entities / 2)
            throw std::runtime_error("the preview has drawn too little: " + drawn.page.trouble);
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    return times;
}

} // namespace sm::bench
