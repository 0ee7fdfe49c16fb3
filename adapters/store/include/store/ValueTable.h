// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and values in memory: the shipped facts, and the layer that a run lays over the stored settings.
#pragma once

#include "ports/IRegistry.h"

#include <map>
#include <string>
#include <utility>

namespace sm::store {

struct StoredValue {
    RegistryType type = RegistryType::None;
    std::string data;
    friend bool operator==(const StoredValue&, const StoredValue&) = default;
};

class ValueTable {
public:
    /// The key itself, or one below it, is there.
    [[nodiscard]] bool HasKey(RegistryRoot root, const std::string& path) const;
    void AddKey(RegistryRoot root, const std::string& path);
    /// Null when there is none; valid until the next change.
    [[nodiscard]] const StoredValue* Find(RegistryRoot root, const std::string& path, const std::string& name) const;
    void Set(RegistryRoot root, const std::string& path, const std::string& name, StoredValue value);
    void SetText(RegistryRoot root, const std::string& path, const std::string& name, const std::string& text);

private:
    using Key = std::pair<RegistryRoot, std::string>;
    static Key KeyOf(RegistryRoot root, const std::string& path);
    std::map<Key, std::map<std::string, StoredValue>> m_keys;
};

/// What `IRegistry::QueryValue` does with a value that was found: false when it doesn't fit the buffer.
bool CopyInto(const StoredValue& value, std::string& buffer);

/// The value that `IRegistry::SetValue` is given; false when `byteCount` is more than there is.
bool TakeBytes(const std::string& data, std::uint32_t byteCount, std::string& taken);

} // namespace sm::store
