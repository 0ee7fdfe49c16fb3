// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/Install.h"

#include "ports/RegistryKeys.h"
#include "store/RegistryOverFacts.h"
#include "windows/system/WindowsSystem.h"

namespace sm::app {
namespace {

/// The system's registry, which lives as long as what is laid over it.
class UserRegistry final : public store::RegistryOverFacts {
public:
    explicit UserRegistry(store::ValueTable facts) : UserRegistry(std::move(facts), windows::CreateRegistry()) {}

private:
    UserRegistry(store::ValueTable facts, std::unique_ptr<IRegistry> below)
        : RegistryOverFacts(*below, kMakerKey, std::move(facts)), m_below(std::move(below))
    {
    }
    std::unique_ptr<IRegistry> m_below;
};

} // namespace

std::filesystem::path WindowsProgram(const std::filesystem::path& executable)
{
    return executable.parent_path() / "sheetmaker-windows.exe";
}

bool CanReadSettings(const Install&, const std::function<void(const std::string&)>&)
{
    return true; // the system keeps its registry whole
}

std::unique_ptr<IRegistry> OpenSettings(const Install& install, const std::function<void(const std::string&)>&)
{
    store::ValueTable facts = FactsOf(install);
    facts.SetText(RegistryRoot::LocalMachine, kSettingsKey, "HelpFile",
                  base::ToText((install.places.shareFolder / "help" / "index.html").make_preferred()));
    return std::make_unique<UserRegistry>(std::move(facts));
}

} // namespace sm::app
