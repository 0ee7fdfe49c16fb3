// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ValueTable.h"

#include "database/KeyPath.h"

#include <algorithm>

namespace sm::store {

KeyPath::KeyPath(std::string text) : m_text(std::move(text)), m_folded(FoldKeyPath(m_text)) {}

const ValueTable::Keys* ValueTable::Below(RegistryRoot root) const
{
    const auto found = m_roots.find(root);
    return found == m_roots.end() ? nullptr : &found->second;
}

bool ValueTable::HasKey(RegistryRoot root, const KeyPath& path) const
{
    const Keys* const keys = Below(root);
    if (keys == nullptr)
        return false;
    if (keys->contains(path.Folded()))
        return true;
    const std::string below = path.Folded() + '\\';
    const auto next = keys->lower_bound(below);
    return next != keys->end() && next->first.starts_with(below);
}

void ValueTable::AddKey(RegistryRoot root, const KeyPath& path)
{
    m_roots[root][path.Folded()];
}

const StoredValue* ValueTable::Find(RegistryRoot root, const KeyPath& path, const std::string& name) const
{
    const Keys* const keys = Below(root);
    if (keys == nullptr)
        return nullptr;
    const auto key = keys->find(path.Folded());
    if (key == keys->end())
        return nullptr;
    const auto value = key->second.find(FoldCase(name));
    return value == key->second.end() ? nullptr : &value->second;
}

void ValueTable::Set(RegistryRoot root, const KeyPath& path, const std::string& name, StoredValue value)
{
    m_roots[root][path.Folded()][FoldCase(name)] = std::move(value);
}

void ValueTable::SetText(RegistryRoot root, const KeyPath& path, const std::string& name, const std::string& text)
{
    Set(root, path, name, {RegistryType::String, text});
}

bool CopyInto(const StoredValue& value, std::string& buffer)
{
    if (value.data.size() > buffer.size())
        return false;
    std::copy(value.data.begin(), value.data.end(), buffer.begin());
    return true;
}

bool TakeBytes(const std::string& data, std::uint32_t byteCount, std::string& taken)
{
    if (byteCount > data.size())
        return false;
    taken = data.substr(0, byteCount);
    return true;
}

} // namespace sm::store
