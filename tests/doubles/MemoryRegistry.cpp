// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/MemoryRegistry.h"

#include <algorithm>

namespace sm {

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

std::string Replace(const std::string& text, const std::string& from, const std::string& to)
{
    std::string result;
    std::size_t begin = 0;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, begin)) {
        result += text.substr(begin, at - begin) + to;
        begin = at + from.size();
    }
    return result + text.substr(begin);
}

} // namespace

void MemoryRegistry::Put(RegistryRoot root, const std::string& path, const std::string& name, const std::string& text)
{
    PutBytes(root, path, name, RegistryType::String, Encode(text) + '\0');
}

void MemoryRegistry::PutBytes(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                              const std::string& bytes)
{
    MakeKey(IdOf(root, path))[Lower(name)] = {type, bytes};
}

const MemoryRegistry::Value* MemoryRegistry::Find(RegistryRoot root, const std::string& path,
                                                  const std::string& name) const
{
    const auto key = m_keys.find(IdOf(root, path));
    if (key == m_keys.end())
        return nullptr;
    const auto value = key->second.find(Lower(name));
    return value == key->second.end() ? nullptr : &value->second;
}

std::string MemoryRegistry::Text(RegistryRoot root, const std::string& path, const std::string& name) const
{
    const Value* value = Find(root, path, name);
    if (value == nullptr)
        return "(absent)";
    return !value->bytes.empty() && value->bytes.back() == '\0' ? value->bytes.substr(0, value->bytes.size() - 1)
                                                                : value->bytes;
}

bool MemoryRegistry::HasKey(RegistryRoot root, const std::string& path) const
{
    return m_keys.count(IdOf(root, path)) > 0;
}

std::size_t MemoryRegistry::ValueCount(RegistryRoot root, const std::string& path) const
{
    const auto key = m_keys.find(IdOf(root, path));
    return key == m_keys.end() ? 0 : key->second.size();
}

MemoryRegistry::KeyId MemoryRegistry::IdOf(RegistryRoot root, const std::string& path)
{
    return {root, Lower(path)};
}

RegistryKey MemoryRegistry::Open(Values& values)
{
    m_handles[++m_lastHandle] = &values;
    return m_lastHandle;
}

MemoryRegistry::Values& MemoryRegistry::MakeKey(const KeyId& id)
{
    const auto [key, isNew] = m_keys.try_emplace(id);
    for (std::size_t at = id.second.find('\\'); isNew && at != std::string::npos; at = id.second.find('\\', at + 1))
        m_keys[{id.first, id.second.substr(0, at)}];
    return key->second;
}

const MemoryRegistry::Value* MemoryRegistry::Find(RegistryKey key, const std::string& name) const
{
    const auto handle = m_handles.find(key);
    if (handle == m_handles.end())
        return nullptr;
    const auto value = handle->second->find(Lower(name));
    return value == handle->second->end() ? nullptr : &value->second;
}

std::optional<RegistryKey> MemoryRegistry::OpenKey(RegistryRoot root, const std::string& path)
{
    const auto key = m_keys.find(IdOf(root, path));
    return key == m_keys.end() ? std::nullopt : std::optional(Open(key->second));
}

std::optional<RegistryKey> MemoryRegistry::CreateKey(RegistryRoot root, const std::string& path)
{
    return Open(MakeKey(IdOf(root, path)));
}

std::optional<RegistryValueInfo> MemoryRegistry::QueryInfo(RegistryKey key, const std::string& name)
{
    const Value* value = Find(key, name);
    if (value == nullptr)
        return std::nullopt;
    return RegistryValueInfo{value->type, static_cast<std::uint32_t>(value->bytes.size())};
}

bool MemoryRegistry::QueryValue(RegistryKey key, const std::string& name, std::string& buffer)
{
    const Value* value = Find(key, name);
    if (value == nullptr || value->bytes.size() > buffer.size())
        return false;
    buffer.replace(0, value->bytes.size(), value->bytes);
    return true;
}

bool MemoryRegistry::SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                              std::uint32_t byteCount)
{
    const auto handle = m_handles.find(key);
    if (handle == m_handles.end() || byteCount > data.size())
        return false;
    (*handle->second)[Lower(name)] = {type, data.substr(0, byteCount)};
    return true;
}

bool MemoryRegistry::CloseKey(RegistryKey key)
{
    return m_handles.erase(key) > 0;
}

std::string MemoryRegistry::Encode(const std::string& utf8)
{
    std::string text = utf8;
    for (const auto& [character, bytes] : codePage)
        text = Replace(text, character, bytes);
    return text;
}

std::string MemoryRegistry::Decode(const std::string& bytes)
{
    std::string text = bytes;
    for (const auto& [character, encoded] : codePage)
        text = Replace(text, encoded, character);
    return text;
}

} // namespace sm
