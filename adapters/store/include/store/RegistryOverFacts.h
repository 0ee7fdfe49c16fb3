// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own settings in a registry of the system, over the facts that the install ships.
#pragma once

#include "store/ValueTable.h"

#include <string>
#include <unordered_map>

namespace sm::store {

/// CurrentUser: what the registry below holds in the keys of `ownKey` and under it, else the facts. Everything else,
/// LocalMachine whole, is the facts alone: what other programs of the same machine keep there is not this one's, and
/// nothing of it is written. `below` must outlive this object. One thread only.
class RegistryOverFacts : public IRegistry {
public:
    RegistryOverFacts(IRegistry& below, const std::string& ownKey, ValueTable facts);
    ~RegistryOverFacts() override;
    RegistryOverFacts(const RegistryOverFacts&) = delete;
    RegistryOverFacts& operator=(const RegistryOverFacts&) = delete;

    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override;
    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override;
    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override;
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override;
    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override;
    bool CloseKey(RegistryKey key) override;
    std::string Encode(const std::string& utf8) override { return m_below.Encode(utf8); }
    std::string Decode(const std::string& bytes) override { return m_below.Decode(bytes); }

private:
    struct OpenedKey {
        RegistryRoot root;
        KeyPath path;
        std::optional<RegistryKey> below; ///< nothing where the registry below has no say or no such key
    };

    [[nodiscard]] bool IsOwn(RegistryRoot root, const KeyPath& path) const;
    RegistryKey Remember(OpenedKey key);
    [[nodiscard]] OpenedKey* Find(RegistryKey key);

    IRegistry& m_below;
    std::string m_ownKey; ///< folded
    ValueTable m_facts;
    std::unordered_map<RegistryKey, OpenedKey> m_open;
    RegistryKey m_last = 0;
};

} // namespace sm::store
