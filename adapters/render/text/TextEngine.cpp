#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "drawing/entities/Texts.h"
#include "text/LineLayout.h"
#include "text/MTextLayout.h"

namespace sm::render {

namespace {

class Engine final : public TextEngine {
public:
    explicit Engine(const TextFolders& folders)
        : m_fonts(folders.data, folders.user), m_line(m_fonts, m_parts), m_paragraphs(m_fonts, m_parts)
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

    std::vector<std::string> Substitutions() const override { return m_fonts.Substitutions(); }

private:
    FontLibrary m_fonts;
    LaidParts m_parts;
    LineLayout m_line;
    MTextLayout m_paragraphs;
    drawing::MTextData m_embedded;
};

} // namespace

TextFolders TextFoldersOf(const std::string& shareFolder)
{
    return {shareFolder, base::ToText(base::SettingsFolder(base::Variable))};
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
