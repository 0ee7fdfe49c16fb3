// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/LineSetter.h"

#include "base/Units.h"
#include "postscript/PsWriter.h"
#include "render/FontFace.h"

#include <utility>

namespace sm::plotter {

namespace {

constexpr double kEm = 100;      ///< millimetres: small beside the farthest place of a body, large beside its pens
constexpr double kBoxPen = 0.05; ///< em: of the boxes for characters that no font has

class Setter final : public LineSetter {
public:
    Setter(const std::string& shareFolder, std::function<void(const std::string&)> remark)
        : m_engine(render::TextEngine::Create(render::TextFoldersOf(shareFolder))), m_remark(std::move(remark))
    {
    }

    BodyLine Set(std::string_view line, const render::LineLook& look, std::uint32_t color) override
    {
        const render::LaidText& laid = m_engine->Lay(line, look);
        PsWriter writer(kLineEm / kEm * base::kMillimetresPerInch, {}, 0, &m_fonts);
        for (const render::GlyphPart& part : laid.glyphs) {
            render::TextRun run = part.run;
            run.toPaper = render::Compose({kEm, 0, 0, kEm, 0, 0}, run.toPaper);
            run.color = color;
            run.penWidth = run.font != nullptr && run.font->IsStroked() ? kBoxPen * kEm : 0;
            writer.Text(run);
            if (m_remark) {
                render::TellMissing(part, m_remark);
            }
        }
        writer.Finish();
        BodyLine result{{}, laid.outline[1].x};
        writer.Body().WriteTo([&](std::string_view piece) { result.body += piece; });
        return result;
    }

    std::string Fonts() const override { return m_fonts.Definitions(); }

private:
    std::unique_ptr<render::TextEngine> m_engine;
    std::function<void(const std::string&)> m_remark;
    FontBook m_fonts;
};

} // namespace

std::unique_ptr<LineSetter> LineSetter::Create(const std::string& shareFolder,
                                               std::function<void(const std::string& remark)> remark)
{
    return std::make_unique<Setter>(shareFolder, std::move(remark));
}

} // namespace sm::plotter
