#include "render/text/FontFolders.h"

#include "render/text/Unicode.h"

#include <cstdlib>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <memory>

namespace sm::render {

namespace {

struct PatternEnd {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternEnd>;

std::optional<FontPlace> Match(FcPattern* wanted)
{
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, wanted, &result));
    FcChar8* file = nullptr;
    int index = 0;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) {
        return std::nullopt;
    }
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
    return FontPlace{reinterpret_cast<const char*>(file), index & 0xFFFF};
}

bool IsFontFile(const std::string& lowered)
{
    for (const char* ending : {".ttf", ".ttc", ".otf", ".lff", ".shx"}) {
        if (lowered.ends_with(ending)) {
            return true;
        }
    }
    return false;
}

std::string Home(const char* below)
{
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + below : std::string();
}

} // namespace

void FontFolders::ScanFolder(const std::string& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
    for (; !error && at != end; at.increment(error)) {
        if (at.depth() > 6) {
            at.disable_recursion_pending();
        }
        const std::string name = Lowered(at->path().filename().string());
        if (IsFontFile(name)) {
            m_files.try_emplace(name, at->path().string());
        }
    }
}

void FontFolders::Scan()
{
    if (m_scanned) {
        return;
    }
    m_scanned = true;
    std::vector<std::string> folders = m_more;
    const char* data = std::getenv("XDG_DATA_HOME");
    folders.push_back(data != nullptr && *data == '/' ? std::string(data) + "/fonts" : Home("/.local/share/fonts"));
    folders.push_back(Home("/.fonts"));
    folders.insert(folders.end(), {"/usr/local/share/fonts", "/usr/share/fonts", "/usr/share/librecad/fonts"});
    for (const std::string& folder : folders) {
        if (!folder.empty()) {
            ScanFolder(folder);
        }
    }
}

const std::string* FontFolders::Named(std::string_view fileName)
{
    Scan();
    const auto found = m_files.find(Lowered(fileName));
    return found == m_files.end() ? nullptr : &found->second;
}

FontFolders::Files FontFolders::FilesIn(const std::string& folder)
{
    namespace fs = std::filesystem;
    Files files;
    std::error_code error;
    fs::directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
    for (; !error && at != end; at.increment(error)) {
        const std::string name = Lowered(at->path().filename().string());
        if (IsFontFile(name)) {
            files.try_emplace(name, at->path().string());
        }
    }
    return files;
}

const std::string* FontFolders::Named(std::string_view fileName, const std::string& folder)
{
    if (!folder.empty()) {
        auto known = m_beside.find(folder);
        if (known == m_beside.end()) {
            known = m_beside.emplace(folder, FilesIn(folder)).first;
        }
        const auto found = known->second.find(Lowered(fileName));
        if (found != known->second.end()) {
            return &found->second;
        }
    }
    return Named(fileName);
}

std::optional<FontPlace> FontFolders::ForFamily(const std::string& family, bool bold, bool italic) const
{
    const Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    return Match(wanted.get());
}

std::optional<FontPlace> FontFolders::ForCharacter(char32_t character) const
{
    FcCharSet* characters = FcCharSetCreate();
    FcCharSetAddChar(characters, character);
    const Pattern wanted(FcPatternCreate());
    FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcCharSetDestroy(characters);
    return Match(wanted.get());
}

} // namespace sm::render
