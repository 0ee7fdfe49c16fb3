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

/// A key's path with the form in which it is compared: a run asks for hundreds of values of few keys.
class KeyPath {
public:
    KeyPath(std::string text);                                // NOLINT(google-explicit-constructor): a path is a text
    KeyPath(const char* text) : KeyPath(std::string(text)) {} // NOLINT(google-explicit-constructor)
    [[nodiscard]] const std::string& Text() const { return m_text; }
    /// Without letter case, and without leading, trailing and doubled "\".
    [[nodiscard]] const std::string& Folded() const { return m_folded; }

private:
    std::string m_text, m_folded;
};

class ValueTable {
public:
    /// The key itself, or one below it, is there.
    [[nodiscard]] bool HasKey(RegistryRoot root, const KeyPath& path) const;
    void AddKey(RegistryRoot root, const KeyPath& path);
    /// Null when there is none; valid until the next change.
    [[nodiscard]] const StoredValue* Find(RegistryRoot root, const KeyPath& path, const std::string& name) const;
    void Set(RegistryRoot root, const KeyPath& path, const std::string& name, StoredValue value);
    void SetText(RegistryRoot root, const KeyPath& path, const std::string& name, const std::string& text);

private:
    using Values = std::map<std::string, StoredValue>;
    using Keys = std::map<std::string, Values>;
    /// Null when the root has no keys.
    [[nodiscard]] const Keys* Below(RegistryRoot root) const;

    std::map<RegistryRoot, Keys> m_roots;
};

/// What `IRegistry::QueryValue` does with a value that was found: false when it doesn't fit the buffer.
bool CopyInto(const StoredValue& value, std::string& buffer);

/// The value that `IRegistry::SetValue` is given; false when `byteCount` is more than there is.
bool TakeBytes(const std::string& data, std::uint32_t byteCount, std::string& taken);

} // namespace sm::store
