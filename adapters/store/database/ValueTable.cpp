// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ValueTable.h"

#include "database/KeyPath.h"

#include <algorithm>

namespace sm::store {

ValueTable::Key ValueTable::KeyOf(RegistryRoot root, const std::string& path)
{
    return {root, FoldKeyPath(path)};
}

bool ValueTable::HasKey(RegistryRoot root, const std::string& path) const
{
    const Key wanted = KeyOf(root, path);
    if (m_keys.contains(wanted))
        return true;
    const Key below{root, wanted.second + '\\'};
    const auto next = m_keys.lower_bound(below);
    return next != m_keys.end() && next->first.first == root && next->first.second.starts_with(below.second);
}

void ValueTable::AddKey(RegistryRoot root, const std::string& path)
{
    m_keys[KeyOf(root, path)];
}

const StoredValue* ValueTable::Find(RegistryRoot root, const std::string& path, const std::string& name) const
{
    const auto key = m_keys.find(KeyOf(root, path));
    if (key == m_keys.end())
        return nullptr;
    const auto value = key->second.find(FoldCase(name));
    return value == key->second.end() ? nullptr : &value->second;
}

void ValueTable::Set(RegistryRoot root, const std::string& path, const std::string& name, StoredValue value)
{
    m_keys[KeyOf(root, path)][FoldCase(name)] = std::move(value);
}

void ValueTable::SetText(RegistryRoot root, const std::string& path, const std::string& name, const std::string& text)
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
