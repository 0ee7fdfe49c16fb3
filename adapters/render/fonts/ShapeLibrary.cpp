// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/ShapeLibrary.h"

#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "drawing/Drawing.h"
#include "fonts/FontNames.h"
#include "shapes/CommonShapes.h"
#include "shapes/ShapePen.h"

namespace sm::render {

namespace {

// Without folders, small letters, with the ending of compiled shape files: ".shp" names their source.
std::string ShapeFileName(const std::string& fontFile)
{
    const std::string name = base::FoldCase(FileNameOf(fontFile));
    if (name.empty() || EndingOf(name) == ".shx") {
        return name;
    }
    return (EndingOf(name) == ".shp" ? StemOf(name) : name) + ".shx";
}

} // namespace

ShapeLibrary::ShapeLibrary(const drawing::Drawing& drawing)
    : m_drawing(drawing), m_folders(UserFontFolders(base::ToText(base::SettingsFolder(base::Variable))))
{
}

const ShapeFile* ShapeLibrary::FileOf(const std::string& name)
{
    const auto known = m_files.find(name);
    if (known != m_files.end()) {
        return known->second.get();
    }
    std::unique_ptr<ShapeFile>& file = m_files[name];
    const std::string* const path = m_folders.Named(name, FolderOf(m_drawing.Path()));
    file = path != nullptr ? ShapeFile::Open(*path) : nullptr;
    return file.get();
}

const Path* ShapeLibrary::Keep(const Key& key, const ShapeFile* file)
{
    auto known = m_paths.find(key);
    if (known == m_paths.end()) {
        known = m_paths.emplace(key, Path{}).first;
        const bool found = file != nullptr && AppendShape(*file, key.number, known->second);
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
    const std::string name = style < styles.size() ? ShapeFileName(styles[style].fontFile) : std::string();
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
        const std::string fileName = style.isShapeFile ? ShapeFileName(style.fontFile) : std::string();
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
