// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/UnderlayPages.h"

#include "ghostscript/PdfPages.h"

namespace sm::app {
namespace {

class UnderlayPages final : public render::IPageRasterizer {
public:
    UnderlayPages(const std::string& program, const std::string& workFolder) : m_pages(program, workFolder) {}

    Vec2 SizeOf(const std::string& path, std::int32_t page) override
    {
        const ghostscript::PdfPages::Size size = m_pages.SizeOf(path, page);
        return {size.width, size.height};
    }

    Pixels Show(const std::string& path, std::int32_t page, double dotsPerInch) override
    {
        ghostscript::PdfPages::Pixels pixels = m_pages.Show(path, page, dotsPerInch);
        return {pixels.width, pixels.height, std::move(pixels.rgb)};
    }

private:
    ghostscript::PdfPages m_pages;
};

} // namespace

std::shared_ptr<render::IPageRasterizer> CreateUnderlayPages(const std::string& program, const std::string& workFolder)
{
    return std::make_shared<UnderlayPages>(program, workFolder);
}

} // namespace sm::app
