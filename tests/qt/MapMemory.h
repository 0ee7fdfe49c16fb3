// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows remember, for as long as a test runs.
#pragma once

#include "beside/WindowMemory.h"

#include <map>

namespace sm::qt {

class MapMemory final : public beside::IWindowMemory {
public:
    std::map<std::string, std::string> texts;

    [[nodiscard]] std::string Recall(const std::string& name) override
    {
        const auto found = texts.find(name);
        return found == texts.end() ? "" : found->second;
    }
    void Remember(const std::string& name, const std::string& text) override { texts[name] = text; }
};

/// That of TheScreen; tests clear it.
inline MapMemory& Memory()
{
    static MapMemory memory;
    return memory;
}

} // namespace sm::qt
