// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and writes of whole values, as the plug-in does them.
#pragma once

#include "ports/IRegistry.h"

#include <string>

namespace sm {

inline bool WriteText(IRegistry& registry, const std::string& path, const std::string& name, const std::string& text,
                      RegistryRoot root = RegistryRoot::CurrentUser)
{
    const auto key = registry.CreateKey(root, path);
    if (!key)
        return false;
    const bool written =
        registry.SetValue(*key, name, RegistryType::String, text, static_cast<std::uint32_t>(text.size()));
    registry.CloseKey(*key);
    return written;
}

/// "(none)" when the key or the value isn't there.
inline std::string ReadText(IRegistry& registry, const std::string& path, const std::string& name,
                            RegistryRoot root = RegistryRoot::CurrentUser)
{
    const auto key = registry.OpenKey(root, path);
    if (!key)
        return "(none)";
    const auto info = registry.QueryInfo(*key, name);
    std::string buffer(info ? info->size : 0, ' ');
    const bool read = info && registry.QueryValue(*key, name, buffer);
    registry.CloseKey(*key);
    return read ? buffer : "(none)";
}

} // namespace sm
