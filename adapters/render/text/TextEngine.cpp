// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "base/text/Utf8.h"
#include "drawing/entities/Texts.h"
#include "fonts/CharacterBlocks.h"
#include "render/Remarks.h"
#include "text/LineLayout.h"
#include "text/MTextLayout.h"
#include "text/Typesetter.h"

namespace sm::render {

namespace {

class Engine final : public TextEngine {
public:
    explicit Engine(const TextFolders& folders)
        : m_fonts(folders.data, folders.user), m_line(m_fonts, m_parts), m_paragraphs(m_fonts, m_parts),
          m_plain(m_fonts, m_parts)
    {
    }

    const LaidText& Lay(const drawing::Drawing& drawing, const drawing::TextData& text) override
    {
        if (text.embeddedMText) {
            Read(drawing, *text.embeddedMText, m_embedded);
            if (!m_embedded.text.empty()) {
                return Lay(drawing, m_embedded);
            }
        }
        m_line.Lay(drawing, text);
        return m_parts.Result();
    }

    const LaidText& Lay(const drawing::Drawing& drawing, const drawing::MTextData& text) override
    {
        m_paragraphs.Lay(drawing, text);
        return m_parts.Result();
    }

    const LaidText& Lay(std::string_view line, const LineLook& look) override
    {
        m_parts.Begin();
        Font font = m_fonts.ForFamily(look.family, look.bold, look.italic);
        font.faceWidth = 1; // its own letters, not those of the font that a drawing means
        TypeStyle style;
        style.font = &font;
        style.height = font.face != nullptr ? font.face->CapHeight() : StrokeFont::kCapHeight;
        const Vec2 corner{m_plain.Set(line, style, {}), style.height};
        m_parts.Result().outline = {{0, 0}, {corner.x, 0}, corner, {0, corner.y}};
        return m_parts.Result();
    }

    std::vector<std::string> Substitutions() const override { return m_fonts.Substitutions(); }

private:
    FontLibrary m_fonts;
    LaidParts m_parts;
    LineLayout m_line;
    MTextLayout m_paragraphs;
    Typesetter m_plain;
    drawing::MTextData m_embedded;
};

} // namespace

TextFolders TextFoldersOf(const std::string& shareFolder)
{
    return {shareFolder, base::ToText(base::SettingsFolder(base::Variable))};
}

void TellMissing(const GlyphPart& part, const std::function<void(const std::string& remark)>& tell)
{
    for (std::size_t at = 0; part.missing && at < part.run.text.size();) {
        const char32_t c = base::NextCharacter(part.run.text, at);
        tell(std::string(kMissingCharacters) + std::string(CharacterBlock(c)));
    }
}

void TextEngine::Prepare()
{
    FontFolders::Prepare();
}

std::unique_ptr<TextEngine> TextEngine::Create(const TextFolders& folders)
{
    return std::make_unique<Engine>(folders);
}

} // namespace sm::render
