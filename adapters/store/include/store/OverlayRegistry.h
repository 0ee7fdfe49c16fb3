// SPDX-License-Identifier: GPL-3.0-or-later
// A layer in memory over a registry: the options and the state of one run.
#pragma once

#include "store/ValueTable.h"

#include <set>
#include <unordered_map>
#include <vector>

namespace sm::store {

/// Reads see the layer first. A write of a value that was laid over stays in the layer; so does one of a value named
/// to `KeepWrites` or `Isolate`. Every other write goes to the registry below, which must outlive this object.
class OverlayRegistry final : public IRegistry {
public:
    explicit OverlayRegistry(IRegistry& below) : m_below(below) {}

    /// Lays a text over the stored value for as long as this object lives.
    void Lay(RegistryRoot root, const std::string& keyPath, const std::string& name, const std::string& utf8);
    /// Writes of `name` in any key stay here; reads see the registry below until something was written.
    void KeepWrites(const std::string& name);
    /// Value `name` in the keys below `keyPath` lives here alone: what the registry below holds is never seen.
    void Isolate(RegistryRoot root, const std::string& keyPath, const std::string& name);

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
        std::optional<RegistryKey> below; ///< nothing while the registry below doesn't have the key
    };
    struct IsolatedValue {
        RegistryRoot root;
        std::string foldedPath, foldedName;
    };

    RegistryKey Remember(OpenedKey key);
    [[nodiscard]] OpenedKey* Find(RegistryKey key);
    /// The key below that a read of `name` goes to; nothing when the read ends here.
    std::optional<RegistryKey> KeyBelow(OpenedKey& key, const std::string& name);
    [[nodiscard]] bool IsIsolated(const OpenedKey& key, const std::string& name) const;
    [[nodiscard]] bool StaysHere(const OpenedKey& key, const std::string& name) const;

    IRegistry& m_below;
    ValueTable m_layer;
    std::set<std::string> m_keptNames;
    std::vector<IsolatedValue> m_isolated;
    std::unordered_map<RegistryKey, OpenedKey> m_open;
    RegistryKey m_last = 0;
};

} // namespace sm::store
