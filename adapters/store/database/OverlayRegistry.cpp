// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/OverlayRegistry.h"

#include "database/KeyPath.h"

#include <algorithm>

namespace sm::store {

void OverlayRegistry::Lay(RegistryRoot root, const std::string& keyPath, const std::string& name,
                          const std::string& utf8)
{
    m_layer.SetText(root, keyPath, name, m_below.Encode(utf8));
}

void OverlayRegistry::KeepWrites(const std::string& name)
{
    m_keptNames.insert(FoldCase(name));
}

void OverlayRegistry::Isolate(RegistryRoot root, const std::string& keyPath, const std::string& name)
{
    m_isolated.push_back({root, FoldKeyPath(keyPath), FoldCase(name)});
}

RegistryKey OverlayRegistry::Remember(OpenedKey key)
{
    m_open.emplace(++m_last, std::move(key));
    return m_last;
}

OverlayRegistry::OpenedKey* OverlayRegistry::Find(RegistryKey key)
{
    const auto found = m_open.find(key);
    return found == m_open.end() ? nullptr : &found->second;
}

std::optional<RegistryKey> OverlayRegistry::KeyBelow(OpenedKey& key, const std::string& name)
{
    if (IsIsolated(key, name))
        return std::nullopt;
    if (!key.below) // it may have been made since
        key.below = m_below.OpenKey(key.root, key.path.Text());
    return key.below;
}

bool OverlayRegistry::IsIsolated(const OpenedKey& key, const std::string& name) const
{
    if (m_isolated.empty())
        return false;
    const std::string& path = key.path.Folded();
    const std::string folded = FoldCase(name);
    return std::any_of(m_isolated.begin(), m_isolated.end(), [&](const IsolatedValue& value) {
        return value.root == key.root && value.foldedName == folded && path.starts_with(value.foldedPath + "\\");
    });
}

bool OverlayRegistry::StaysHere(const OpenedKey& key, const std::string& name) const
{
    return m_layer.Find(key.root, key.path, name) || m_keptNames.contains(FoldCase(name)) || IsIsolated(key, name);
}

std::optional<RegistryKey> OverlayRegistry::OpenKey(RegistryRoot root, const std::string& path)
{
    OpenedKey key{root, path, m_below.OpenKey(root, path)};
    if (!key.below && !m_layer.HasKey(root, key.path))
        return std::nullopt;
    return Remember(std::move(key));
}

std::optional<RegistryKey> OverlayRegistry::CreateKey(RegistryRoot root, const std::string& path)
{
    // Below, the key is made when the first value goes there, so that a run with nothing to store stores nothing.
    m_layer.AddKey(root, path);
    return Remember({root, path, m_below.OpenKey(root, path)});
}

std::optional<RegistryValueInfo> OverlayRegistry::QueryInfo(RegistryKey key, const std::string& name)
{
    OpenedKey* opened = Find(key);
    if (!opened)
        return std::nullopt;
    if (const StoredValue* value = m_layer.Find(opened->root, opened->path, name))
        return RegistryValueInfo{value->type, static_cast<std::uint32_t>(value->data.size())};
    const std::optional<RegistryKey> below = KeyBelow(*opened, name);
    return below ? m_below.QueryInfo(*below, name) : std::nullopt;
}

bool OverlayRegistry::QueryValue(RegistryKey key, const std::string& name, std::string& buffer)
{
    OpenedKey* opened = Find(key);
    if (!opened)
        return false;
    if (const StoredValue* value = m_layer.Find(opened->root, opened->path, name))
        return CopyInto(*value, buffer);
    const std::optional<RegistryKey> below = KeyBelow(*opened, name);
    return below && m_below.QueryValue(*below, name, buffer);
}

bool OverlayRegistry::SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                               std::uint32_t byteCount)
{
    OpenedKey* opened = Find(key);
    if (!opened)
        return false;
    if (StaysHere(*opened, name)) {
        StoredValue value{type, {}};
        if (!TakeBytes(data, byteCount, value.data))
            return false;
        m_layer.Set(opened->root, opened->path, name, std::move(value));
        return true;
    }
    if (!opened->below)
        opened->below = m_below.CreateKey(opened->root, opened->path.Text());
    return opened->below && m_below.SetValue(*opened->below, name, type, data, byteCount);
}

bool OverlayRegistry::CloseKey(RegistryKey key)
{
    const auto found = m_open.find(key);
    if (found == m_open.end())
        return false;
    const bool closed = !found->second.below || m_below.CloseKey(*found->second.below);
    m_open.erase(found);
    return closed;
}

} // namespace sm::store
