// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/RegistryOverFacts.h"

#include "database/KeyPath.h"

namespace sm::store {

RegistryOverFacts::RegistryOverFacts(IRegistry& below, const std::string& ownKey, ValueTable facts)
    : m_below(below), m_ownKey(FoldKeyPath(ownKey)), m_facts(std::move(facts))
{
}

// Keys that are still open belong to a registry that may be gone.
RegistryOverFacts::~RegistryOverFacts() = default;

bool RegistryOverFacts::IsOwn(RegistryRoot root, const KeyPath& path) const
{
    const std::string& folded = path.Folded();
    return root == RegistryRoot::CurrentUser && (folded == m_ownKey || folded.starts_with(m_ownKey + "\\"));
}

RegistryKey RegistryOverFacts::Remember(OpenedKey key)
{
    m_open.emplace(++m_last, std::move(key));
    return m_last;
}

RegistryOverFacts::OpenedKey* RegistryOverFacts::Find(RegistryKey key)
{
    const auto found = m_open.find(key);
    return found == m_open.end() ? nullptr : &found->second;
}

std::optional<RegistryKey> RegistryOverFacts::OpenKey(RegistryRoot root, const std::string& path)
{
    OpenedKey key{root, path, {}};
    if (IsOwn(root, key.path))
        key.below = m_below.OpenKey(root, path);
    if (!key.below && !m_facts.HasKey(root, key.path))
        return std::nullopt;
    return Remember(std::move(key));
}

std::optional<RegistryKey> RegistryOverFacts::CreateKey(RegistryRoot root, const std::string& path)
{
    if (!IsOwn(root, path))
        return OpenKey(root, path);
    OpenedKey key{root, path, m_below.CreateKey(root, path)};
    if (!key.below)
        return std::nullopt;
    return Remember(std::move(key));
}

std::optional<RegistryValueInfo> RegistryOverFacts::QueryInfo(RegistryKey key, const std::string& name)
{
    const OpenedKey* const opened = Find(key);
    if (opened == nullptr)
        return std::nullopt;
    if (opened->below)
        if (const auto info = m_below.QueryInfo(*opened->below, name))
            return info;
    const StoredValue* const fact = m_facts.Find(opened->root, opened->path, name);
    if (fact == nullptr)
        return std::nullopt;
    return RegistryValueInfo{fact->type, static_cast<std::uint32_t>(fact->data.size())};
}

bool RegistryOverFacts::QueryValue(RegistryKey key, const std::string& name, std::string& buffer)
{
    const OpenedKey* const opened = Find(key);
    if (opened == nullptr)
        return false;
    if (opened->below && m_below.QueryInfo(*opened->below, name))
        return m_below.QueryValue(*opened->below, name, buffer);
    const StoredValue* const fact = m_facts.Find(opened->root, opened->path, name);
    return fact != nullptr && CopyInto(*fact, buffer);
}

bool RegistryOverFacts::SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                                 std::uint32_t byteCount)
{
    const OpenedKey* const opened = Find(key);
    return opened != nullptr && opened->below && m_below.SetValue(*opened->below, name, type, data, byteCount);
}

bool RegistryOverFacts::CloseKey(RegistryKey key)
{
    const OpenedKey* const opened = Find(key);
    if (opened == nullptr)
        return false;
    const bool closed = !opened->below || m_below.CloseKey(*opened->below);
    m_open.erase(key);
    return closed;
}

} // namespace sm::store
