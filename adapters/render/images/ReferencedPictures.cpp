// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/ReferenceParts.h"

#include "base/Units.h"
#include "base/files/File.h"
#include "drawing/Drawing.h"
#include "render/Picture.h"
#include "render/RenderReport.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::uint64_t kLargestPictureFile = std::uint64_t{512} << 20;
constexpr double kPageDots = 300;        ///< of a page, on paper, per inch
constexpr double kFewestDots = 18;       ///< per inch of a page: the interpreter wants some
constexpr double kMostPagePixels = 60e6; ///< of a page

/// Pixels that are there already.
class HeldPixels final : public PictureFile {
public:
    explicit HeldPixels(IPageRasterizer::Pixels pixels) : PictureFile(std::move(pixels.rgb))
    {
        SetSize(static_cast<std::uint64_t>(std::max(pixels.width, 0)),
                static_cast<std::uint64_t>(std::max(pixels.height, 0)));
        m_head.hasAlpha = true;
        if (m_bytes.size() < RowBytes() * static_cast<std::size_t>(m_head.height)) {
            throw PictureError("is damaged: pixels are missing");
        }
    }
    void ReadRows(RowTaker& taker) override
    {
        const auto* row = reinterpret_cast<const unsigned char*>(m_bytes.data());
        for (std::int32_t y = 0; y < m_head.height; ++y, row += RowBytes()) {
            taker.Row(row);
        }
    }

private:
    [[nodiscard]] std::size_t RowBytes() const { return static_cast<std::size_t>(m_head.width) * 3; }
};

bool IsGray(const std::string& rgb)
{
    for (std::size_t i = 0; i + 2 < rgb.size(); i += 3) {
        if (rgb[i] != rgb[i + 1] || rgb[i + 1] != rgb[i + 2]) {
            return false;
        }
    }
    return true;
}

/// How many pixels each way may become one, a power of two. Bits and JPEG files are small as they are.
std::int32_t Reduction(const PictureHead& head, const PictureLook& look, Vec2 millimetres, double dots)
{
    if (head.oneBit || (head.passes && look.KeepsColors())) {
        return 1;
    }
    std::int32_t factor = 1;
    const auto isTooFine = [&](std::int32_t count, double length) {
        return count >= 2 * factor * std::max(length * dots, 1.0);
    };
    while (factor < 1024 && isTooFine(head.width, millimetres.x) && isTooFine(head.height, millimetres.y)) {
        factor *= 2;
    }
    return factor;
}

std::int32_t PageNumber(const std::string& page)
{
    std::int32_t number = 1;
    std::from_chars(page.data(), page.data() + page.size(), number);
    return std::clamp(number, 1, 100'000);
}

} // namespace

std::unique_ptr<PictureFile> FromPixels(IPageRasterizer::Pixels pixels)
{
    return std::make_unique<HeldPixels>(std::move(pixels));
}

std::shared_ptr<const Picture> References::PictureOf(const drawing::ImageDefinition& definition, PictureLook look,
                                                     Vec2 size, double dots)
{
    Parts& parts = *m_parts;
    if (parts.unusable.contains(definition.handle) || !IsLoaded(definition)) {
        return nullptr;
    }
    if (const auto head = parts.heads.find(definition.handle); head != parts.heads.end()) {
        look.reduce = Reduction(head->second, look, size, dots);
        if (auto picture = parts.Known({definition.handle, look})) {
            return picture;
        }
    }
    const std::string path = Find(definition.path);
    auto bytes = path.empty() ? std::nullopt : base::ReadRegularFile(path, kLargestPictureFile);
    if (!bytes) {
        parts.unusable.insert(definition.handle);
        Report(ReferenceFinding::kMissing,
               "the picture \"" + definition.path + "\" is not found; put it beside the drawing");
        return nullptr;
    }
    try {
        std::unique_ptr<PictureFile> file = PictureFile::Open(std::move(*bytes));
        parts.heads[definition.handle] = file->Head();
        look.reduce = Reduction(file->Head(), look, size, dots);
        return parts.Keep({definition.handle, look}, MakePicture(std::move(file), look));
    } catch (const std::exception& error) {
        parts.unusable.insert(definition.handle);
        Report(ReferenceFinding::kUnusable, "the picture \"" + definition.path + "\" " + error.what());
        return nullptr;
    }
}

bool References::IsLoaded(const drawing::ImageDefinition& definition)
{
    if (!definition.loaded) {
        Report(ReferenceFinding::kUnloaded, "the picture \"" + definition.path + "\" is unloaded; it is not shown",
               false);
    }
    return definition.loaded;
}

std::string References::PagePath(const drawing::ImageDefinition& definition)
{
    Parts& parts = *m_parts;
    if (!parts.files.contains(definition.handle)) {
        parts.files[definition.handle] = Find(definition.path);
    }
    const std::string& path = parts.files[definition.handle];
    if (path.empty()) {
        parts.unusable.insert(definition.handle);
        Report(ReferenceFinding::kMissing,
               "the underlay \"" + definition.path + "\" is not found; put it beside the drawing");
    }
    return path;
}

References::PagePicture References::PageOf(const drawing::ImageDefinition& definition, const PictureLook& look,
                                           double inch)
{
    const std::string path = m_parts->unusable.contains(definition.handle) ? std::string() : PagePath(definition);
    if (path.empty()) {
        return {};
    }
    try {
        return ShowPage(definition, look, path, inch);
    } catch (const std::exception& error) {
        m_parts->unusable.insert(definition.handle);
        Report(ReferenceFinding::kUnusable, "the page " + std::to_string(PageNumber(definition.page)) + " of \"" +
                                                definition.path + "\" " + error.what());
        return {};
    }
}

References::PagePicture References::ShowPage(const drawing::ImageDefinition& definition, const PictureLook& look,
                                             const std::string& path, double inch)
{
    Parts& parts = *m_parts;
    if (definition.kind != drawing::ImageDefinition::Kind::Pdf) {
        throw PictureError("can't be drawn: it is no PDF file; save it as one");
    }
    if (parts.shared->options.pages == nullptr) {
        throw PictureError("can't be drawn: no program for it is at hand");
    }
    const std::int32_t page = PageNumber(definition.page);
    IPageRasterizer& pages = *parts.shared->options.pages;
    if (!parts.pageSizes.contains(definition.handle)) {
        parts.pageSizes[definition.handle] = pages.SizeOf(path, page);
    }
    const Vec2 size = parts.pageSizes[definition.handle];
    if (!(inch > 0)) {
        return {nullptr, size};
    }
    const double most = std::sqrt(kMostPagePixels / std::max(size.x * size.y, 1e-6));
    const double dots = std::clamp(std::ceil(kPageDots * inch / base::kMillimetresPerInch), kFewestDots,
                                   std::max(kFewestDots, std::floor(most)));
    const Parts::Key key{definition.handle, look, page, static_cast<std::int32_t>(dots)};
    if (auto picture = parts.Known(key)) {
        return {picture, size};
    }
    IPageRasterizer::Pixels pixels = pages.Show(path, page, dots);
    PictureLook made = look;
    made.monochrome = look.monochrome || IsGray(pixels.rgb);
    return {parts.Keep(key, MakePicture(FromPixels(std::move(pixels)), made)), size};
}

} // namespace sm::render
