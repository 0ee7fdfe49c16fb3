// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of the test's own, and what is in it.
#pragma once

#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace sm::base {

class TempFolder {
public:
    [[nodiscard]] std::string Path(const std::string& name) const { return m_folder.Path() + "/" + name; }
    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(ToPath(Path(name)), std::ios::binary) << text;
    }
    [[nodiscard]] std::string Read(const std::string& name) const
    {
        std::ifstream file(ToPath(Path(name)), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Sorted.
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(ToPath(m_folder.Path())))
            names.push_back(ToText(entry.path().filename()));
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    PrivateFolder m_folder{testing::TempDir()};
};

} // namespace sm::base
