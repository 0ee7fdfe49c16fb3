#include "base/files/Paths.h"
#include "drawing/entities/Texts.h"
#include "text/LineLayout.h"
#include "text/MTextLayout.h"

#include <cstdlib>
#include <filesystem>

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

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : "";
}

/// The shipped data: an installed tree's or, above the program, a source tree's.
std::string ShippedFolder()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const std::string told = Variable("SHEETMAKER_PDF_SHARE");
    if (!told.empty()) {
        return told;
    }
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    for (fs::path at = program.parent_path(); at.has_relative_path(); at = at.parent_path()) {
        const fs::path share = at / "share" / "sheetmaker-pdf";
        if (fs::exists(share / "fonts.map", error)) {
            return base::ToText(share);
        }
    }
    return "/usr/share/sheetmaker-pdf";
}

} // namespace

void TextEngine::Prepare()
{
    FontFolders::Prepare();
}

std::unique_ptr<TextEngine> TextEngine::Create()
{
    return Create({ShippedFolder(), UserDataFolder()});
}

std::unique_ptr<TextEngine> TextEngine::Create(const TextFolders& folders)
{
    return std::make_unique<Engine>(folders);
}

} // namespace sm::render
