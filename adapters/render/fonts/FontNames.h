// SPDX-License-Identifier: GPL-3.0-or-later
// Names of font files.
#pragma once

#include "base/files/Paths.h"
#include "base/text/Names.h"

#include <string>

namespace sm::render {

/// Without its folders, of either system.
inline std::string FileNameOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

/// With its slash; "./" for a bare name, empty for an empty one.
inline std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of(base::kSeparators);
    return path.empty() ? std::string() : slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

/// ".ttf", in small letters; empty when there is none.
inline std::string EndingOf(const std::string& file)
{
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos ? std::string() : base::FoldCase(file.substr(dot));
}

inline std::string StemOf(const std::string& file)
{
    return file.substr(0, file.rfind('.'));
}

inline bool IsOutlineEnding(const std::string& ending)
{
    return ending == ".ttf" || ending == ".ttc" || ending == ".otf" || ending == ".pfb";
}

} // namespace sm::render
