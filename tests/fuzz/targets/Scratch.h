// SPDX-License-Identifier: GPL-3.0-or-later
// A private folder for readers that want a file.
#pragma once

#include "base/files/PrivateFolder.h"

#include <fstream>
#include <string>
#include <string_view>

namespace sm::fuzz {

/// Of this process; gone with it.
inline const std::string& ScratchFolder()
{
    static const base::PrivateFolder kFolder("");
    return kFolder.Path();
}

inline std::string WriteScratch(const std::string& name, std::string_view bytes)
{
    std::string path = ScratchFolder() + "/" + name;
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

inline std::string ReadScratch(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace sm::fuzz
