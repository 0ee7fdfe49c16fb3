// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/SystemPorts.h"

#include <charconv>

namespace sm::system {
namespace {

class Component final : public IComponent {
public:
    Component(std::string folder, ComponentVersion version) : m_folder(std::move(folder)), m_version(version) {}
    std::string Folder() override { return m_folder; }
    ComponentVersion Version() override { return m_version; }

private:
    std::string m_folder;
    ComponentVersion m_version;
};

} // namespace

std::unique_ptr<IComponent> CreateComponent(const std::string& shareFolder, ComponentVersion version)
{
    return std::make_unique<Component>(shareFolder, version);
}

ComponentVersion ParseVersion(const std::string& text)
{
    ComponentVersion version;
    const char* next = text.data();
    const char* end = text.data() + text.size();
    for (std::int32_t* part : {&version.major, &version.minor, &version.revision}) {
        next = std::from_chars(next, end, *part).ptr;
        if (next < end && *next == '.')
            ++next;
    }
    return version;
}

} // namespace sm::system
