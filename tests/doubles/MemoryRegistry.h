// SPDX-License-Identifier: GPL-3.0-or-later
// A registry in memory, with the platform's rules on letter case, types and byte counts.
#pragma once

#include "ports/IRegistry.h"

#include <map>
#include <utility>

namespace sm {

/// Values are bytes; `Encode` and `Decode` are the identity unless `codePage` names characters to translate.
class MemoryRegistry : public IRegistry {
public:
    struct Value {
        RegistryType type = RegistryType::String;
        std::string bytes;
    };

    /// Stores a text value under a key made with its parents; a terminating NUL is added as other programs do.
    void Put(RegistryRoot root, const std::string& path, const std::string& name, const std::string& text);
    /// Stores bytes of any type exactly as given.
    void PutBytes(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                  const std::string& bytes);
    /// The stored value, or null.
    [[nodiscard]] const Value* Find(RegistryRoot root, const std::string& path, const std::string& name) const;
    /// The stored bytes without a terminating NUL; "(absent)" when there is no such value.
    [[nodiscard]] std::string Text(RegistryRoot root, const std::string& path, const std::string& name) const;
    [[nodiscard]] bool HasKey(RegistryRoot root, const std::string& path) const;
    /// How many values stand under the key.
    [[nodiscard]] std::size_t ValueCount(RegistryRoot root, const std::string& path) const;

    /// UTF-8 text of a character and the bytes that stand for it in stored values.
    std::map<std::string, std::string> codePage;
    /// Keys opened and not closed again.
    [[nodiscard]] std::size_t OpenHandles() const { return m_handles.size(); }

    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override;
    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override;
    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override;
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override;
    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override;
    bool CloseKey(RegistryKey key) override;
    std::string Encode(const std::string& utf8) override;
    std::string Decode(const std::string& bytes) override;

private:
    using KeyId = std::pair<RegistryRoot, std::string>;
    using Values = std::map<std::string, Value>;

    static KeyId IdOf(RegistryRoot root, const std::string& path);
    RegistryKey Open(Values& values);
    /// The values of the key, made with all its parents when it isn't there.
    Values& MakeKey(const KeyId& id);
    [[nodiscard]] const Value* Find(RegistryKey key, const std::string& name) const;

    std::map<KeyId, Values> m_keys;
    std::map<RegistryKey, Values*> m_handles;
    RegistryKey m_lastHandle = 0;
};

} // namespace sm
