#include "shapes/ShapeLibrary.h"

#include "base/text/Names.h"

#include <cstdlib>
#include <filesystem>

namespace sm::render {

namespace {

namespace fs = std::filesystem;

// The last part of a path of either kind, small letters, with the ending of shape files.
std::string FileName(const std::string& fontFile)
{
    const std::size_t slash = fontFile.find_last_of("/\\");
    std::string name = base::FoldCase(slash == std::string::npos ? fontFile : fontFile.substr(slash + 1));
    if (!name.empty() && !name.ends_with(".shx")) {
        name += name.ends_with(".shp") ? "" : ".shx";
    }
    if (name.ends_with(".shp")) {
        name.back() = 'x';
    }
    return name;
}

/// The file of that name in a folder, letter case aside; empty when there is none.
std::string FileIn(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    int budget = 10000;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (base::FoldCase(at->path().filename().string()) == name) {
            return at->path().string();
        }
        if (--budget == 0) {
            break;
        }
    }
    return {};
}

std::vector<std::string> FoldersFor(const std::string& drawing)
{
    const fs::path beside = fs::path(drawing).parent_path();
    std::vector<std::string> folders{beside.empty() ? "." : beside.string()};
    const auto add = [&](const char* variable, const char* below) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value == '/') {
            folders.push_back(std::string(value) + below);
        }
    };
    add("XDG_CONFIG_HOME", "/sheetmaker-pdf/fonts");
    add("HOME", "/.config/sheetmaker-pdf/fonts");
    add("XDG_DATA_HOME", "/fonts");
    add("HOME", "/.local/share/fonts");
    add("HOME", "/.fonts");
    folders.insert(folders.end(), {"/usr/local/share/fonts", "/usr/share/fonts"});
    return folders;
}

} // namespace

const ShapeFile* ShapeLibrary::FileOf(const std::string& name)
{
    const auto known = m_files.find(name);
    if (known != m_files.end()) {
        return known->second.get();
    }
    std::unique_ptr<ShapeFile>& file = m_files[name];
    for (const std::string& folder : FoldersFor(m_drawing.Path())) {
        const std::string path = FileIn(folder, name);
        file = path.empty() ? nullptr : ShapeFile::Open(path);
        if (file) {
            break;
        }
    }
    return file.get();
}

const Path* ShapeLibrary::Keep(const Key& key, const ShapeFile* file)
{
    auto known = m_paths.find(key);
    if (known == m_paths.end()) {
        known = m_paths.emplace(key, Path{}).first;
        const bool found = file != nullptr && file->Append(key.number, known->second);
        const bool common = key.file.empty() || key.file.starts_with("ltypeshp");
        if (!found && common) {
            AppendCommonShape(key.number, known->second);
        }
    }
    return known->second.Empty() ? nullptr : &known->second;
}

const Path* ShapeLibrary::Find(std::uint32_t style, std::uint16_t number)
{
    const auto& styles = m_drawing.TextStyles();
    const std::string name = style < styles.size() ? FileName(styles[style].fontFile) : std::string();
    const Key key{name, number};
    const auto known = m_paths.find(key);
    if (known != m_paths.end()) {
        return known->second.Empty() ? nullptr : &known->second;
    }
    return Keep(key, name.empty() ? nullptr : FileOf(name));
}

const Path* ShapeLibrary::Find(std::string_view name)
{
    for (const drawing::TextStyle& style : m_drawing.TextStyles()) {
        const std::string fileName = style.isShapeFile ? FileName(style.fontFile) : std::string();
        const ShapeFile* file = fileName.empty() ? nullptr : FileOf(fileName);
        const std::uint16_t number = file != nullptr ? file->NumberOf(name) : std::uint16_t{0};
        if (number != 0) {
            return Keep({fileName, number}, file);
        }
    }
    std::string capitals(name);
    for (char& c : capitals) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    }
    const std::uint16_t common = CommonShapeNumber(capitals);
    return common == 0 ? nullptr : Keep({"", common}, nullptr);
}

} // namespace sm::render
