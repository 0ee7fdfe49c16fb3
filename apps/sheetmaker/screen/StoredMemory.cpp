// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/StoredMemory.h"

#include "settings/mdlWinReg.h"

namespace sm::app {
namespace {

class StoredMemory final : public beside::IWindowMemory {
public:
    explicit StoredMemory(std::unique_ptr<IRegistry> registry) : m_registry(std::move(registry)) {}

    [[nodiscard]] std::string Recall(const std::string& name) override
    {
        return Guarded([&] { return RegReadString(*m_registry, RegistryRoot::CurrentUser, m_key, name).value_or(""); });
    }
    void Remember(const std::string& name, const std::string& text) override
    {
        Guarded([&] {
            if (Recall(name) != text) // a store that didn't change isn't written
                RegWriteString(*m_registry, RegistryRoot::CurrentUser, m_key, name, text);
            return std::string();
        });
    }

private:
    template <class Work> static std::string Guarded(const Work& work) noexcept
    {
        try {
            return work();
        } catch (...) {
            return {};
        }
    }

    std::unique_ptr<IRegistry> m_registry;
    std::string m_key = std::string(kSettingsKey) + "\\Windows";
};

} // namespace

std::unique_ptr<beside::IWindowMemory> CreateWindowMemory(std::unique_ptr<IRegistry> registry)
{
    return std::make_unique<StoredMemory>(std::move(registry));
}

} // namespace sm::app
