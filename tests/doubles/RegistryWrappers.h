// SPDX-License-Identifier: GPL-3.0-or-later
// Wrappers round any registry: one that only forwards, one whose calls fail by plan.
#pragma once

#include "doubles/FaultPlan.h"
#include "ports/IRegistry.h"

namespace sm {

class ForwardingRegistry : public IRegistry {
public:
    explicit ForwardingRegistry(IRegistry& inner) : m_inner(inner) {}
    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override
    {
        return m_inner.OpenKey(root, path);
    }
    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override
    {
        return m_inner.CreateKey(root, path);
    }
    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override
    {
        return m_inner.QueryInfo(key, name);
    }
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override
    {
        return m_inner.QueryValue(key, name, buffer);
    }
    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override
    {
        return m_inner.SetValue(key, name, type, data, byteCount);
    }
    bool CloseKey(RegistryKey key) override { return m_inner.CloseKey(key); }
    std::string Encode(const std::string& utf8) override { return m_inner.Encode(utf8); }
    std::string Decode(const std::string& bytes) override { return m_inner.Decode(bytes); }

private:
    IRegistry& m_inner;
};

/// Every call on keys and values counts; one that fails by `faults` doesn't reach the inner registry.
class FailingRegistry : public ForwardingRegistry {
public:
    using ForwardingRegistry::ForwardingRegistry;
    FaultPlan faults;

    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override
    {
        return faults.ShouldFail() ? std::nullopt : ForwardingRegistry::OpenKey(root, path);
    }
    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override
    {
        return faults.ShouldFail() ? std::nullopt : ForwardingRegistry::CreateKey(root, path);
    }
    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override
    {
        return faults.ShouldFail() ? std::nullopt : ForwardingRegistry::QueryInfo(key, name);
    }
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override
    {
        return !faults.ShouldFail() && ForwardingRegistry::QueryValue(key, name, buffer);
    }
    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override
    {
        return !faults.ShouldFail() && ForwardingRegistry::SetValue(key, name, type, data, byteCount);
    }
    bool CloseKey(RegistryKey key) override { return !faults.ShouldFail() && ForwardingRegistry::CloseKey(key); }
};

} // namespace sm
