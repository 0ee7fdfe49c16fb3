// SPDX-License-Identifier: GPL-3.0-or-later
// Paints all layouts of a drawing as its window shows them, by the canvas that is the same on every system.
//
//     paint_layouts SHARE DRAWING PREFIX      writes PREFIX0.ppm, PREFIX1.ppm, … in tab order
#include "base/process/ThisProcess.h"
#include "drawing/Drawing.h"
#include "render/References.h"
#include "render/TextLayout.h"
#include "scene/ItemPainter.h"
#include "scene/SoftCanvas.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

using namespace sm;

constexpr int kWidth = 900, kHeight = 640;

void Write(const scene::PixelImage& image, const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << image.Width() << " " << image.Height() << "\n255\n";
    for (int y = 0; y < image.Height(); ++y) {
        for (int x = 0; x < image.Width(); ++x) {
            const std::uint32_t pixel = image.Row(y)[x];
            for (const int shift : {16, 8, 0})
                file.put(static_cast<char>(pixel >> shift & 0xFF));
        }
    }
}

void PaintAll(const std::string& share, const std::string& path, const std::string& prefix)
{
    const auto drawing = drawing::Drawing::Open(path);
    const auto text = render::TextEngine::Create(render::TextFoldersOf(share));
    render::References references(*drawing, {});
    const auto canvases = scene::CreateSoftCanvases();
    for (std::size_t layout = 0; layout < drawing->Layouts().size(); ++layout) {
        const auto picture = scene::RecordLayout(*drawing, layout, *text, references, false);
        scene::ViewMap map{{}, 1, kWidth, kHeight};
        map.Fit(picture->home);
        scene::PixelImage image(kWidth, kHeight);
        canvases->Forget();
        PaintPicture(*picture, map, image, image.All(), *canvases, [] { return true; });
        Write(image, prefix + std::to_string(layout) + ".ppm");
    }
}

} // namespace

int main(int count, char** arguments)
{
    sm::base::PrepareProcess();
    if (count == 2) // asked whether it starts
        return 0;
    if (count != 4)
        return 2;
    try {
        PaintAll(arguments[1], arguments[2], arguments[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
