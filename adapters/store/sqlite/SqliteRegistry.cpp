// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SqliteRegistry.h"

#include <unordered_map>

namespace sm::store {
namespace {

struct OpenedKey {
    RegistryRoot root;
    KeyPath path;
};

class SqliteRegistry final : public IRegistry {
public:
    SqliteRegistry(const std::filesystem::path& file, ValueTable facts, Complaint complain, Reading reading)
        : m_file(file, std::move(complain)), m_facts(std::move(facts)), m_reading(reading)
    {
    }

    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override
    {
        OpenedKey key{root, path};
        if (!m_facts.HasKey(root, key.path) && !(root == RegistryRoot::CurrentUser && HasStoredKey(key.path)))
            return std::nullopt;
        return Remember(std::move(key));
    }

    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override
    {
        if (root == RegistryRoot::LocalMachine)
            return OpenKey(root, path);
        if (!m_file.AddKey(path))
            return std::nullopt;
        if (m_read)
            m_read->AddKey(root, path);
        return Remember({root, path});
    }

    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override
    {
        const std::optional<StoredValue> value = Value(key, name);
        if (!value)
            return std::nullopt;
        return RegistryValueInfo{value->type, static_cast<std::uint32_t>(value->data.size())};
    }

    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override
    {
        const std::optional<StoredValue> value = Value(key, name);
        return value && CopyInto(*value, buffer);
    }

    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override
    {
        const auto opened = m_open.find(key);
        StoredValue value{type, {}};
        if (opened == m_open.end() || opened->second.root == RegistryRoot::LocalMachine ||
            !TakeBytes(data, byteCount, value.data))
            return false;
        const bool written = m_file.Write(opened->second.path.Text(), name, value);
        if (written && m_read)
            m_read->Set(RegistryRoot::CurrentUser, opened->second.path, name, value);
        return written;
    }

    bool CloseKey(RegistryKey key) override { return m_open.erase(key) > 0; }
    std::string Encode(const std::string& utf8) override { return utf8; }
    std::string Decode(const std::string& bytes) override { return bytes; }

private:
    RegistryKey Remember(OpenedKey key)
    {
        m_open.emplace(++m_last, std::move(key));
        return m_last;
    }

    /// Everything that was stored; null when each value is read by itself.
    const ValueTable* AllStored()
    {
        if (m_reading == Reading::Once && !m_read)
            m_read = m_file.ReadAll();
        return m_read ? &*m_read : nullptr;
    }

    bool HasStoredKey(const KeyPath& path)
    {
        const ValueTable* all = AllStored();
        return all ? all->HasKey(RegistryRoot::CurrentUser, path) : m_file.HasKey(path.Text());
    }

    std::optional<StoredValue> Stored(const KeyPath& path, const std::string& name)
    {
        const ValueTable* all = AllStored();
        if (!all)
            return m_file.Read(path.Text(), name);
        const StoredValue* value = all->Find(RegistryRoot::CurrentUser, path, name);
        return value ? std::optional<StoredValue>(*value) : std::nullopt;
    }

    std::optional<StoredValue> Value(RegistryKey key, const std::string& name)
    {
        const auto opened = m_open.find(key);
        if (opened == m_open.end())
            return std::nullopt;
        const auto& [root, path] = opened->second;
        if (root == RegistryRoot::CurrentUser)
            if (std::optional<StoredValue> stored = Stored(path, name))
                return stored;
        const StoredValue* fact = m_facts.Find(root, path, name);
        return fact ? std::optional<StoredValue>(*fact) : std::nullopt;
    }

    SettingsFile m_file;
    ValueTable m_facts;
    Reading m_reading;
    std::optional<ValueTable> m_read;
    std::unordered_map<RegistryKey, OpenedKey> m_open;
    RegistryKey m_last = 0;
};

} // namespace

std::unique_ptr<IRegistry> OpenSqliteRegistry(const std::filesystem::path& file, ValueTable facts, Complaint complain,
                                              Reading reading)
{
    return std::make_unique<SqliteRegistry>(file, std::move(facts), std::move(complain), reading);
}

} // namespace sm::store
