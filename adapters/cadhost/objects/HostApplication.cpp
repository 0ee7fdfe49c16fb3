// SPDX-License-Identifier: GPL-3.0-or-later
// The application object, its preferences and its documents.
#include "answers/HostErrors.h"
#include "session/Session.h"

namespace sm::cadhost {
namespace {

class HostPreferences final : public IAcadPreferences {
public:
    explicit HostPreferences(SessionRef session) : m_session(std::move(session)) {}
    std::string DriversPath() override { return m_session->DriversPath(); }
    std::string PrinterConfigPath() override { return m_session->PrinterConfigPath(); }
    void SetPrinterConfigPath(const std::string& path) override { m_session->SetPrinterConfigPath(path); }
    std::string ActiveProfile() override { return "<<Unnamed Profile>>"; }

private:
    SessionRef m_session;
};

class HostDocuments final : public IAcadDocuments {
public:
    explicit HostDocuments(SessionRef session) : m_session(std::move(session)) {}
    std::int32_t Count() override { return static_cast<std::int32_t>(m_session->Drawings().size()); }
    std::shared_ptr<IAcadDocument> Item(std::int32_t index) override
    {
        const auto& drawings = m_session->Drawings();
        if (index < 0 || static_cast<std::size_t>(index) >= drawings.size())
            throw HostError("Documents: there is no item " + std::to_string(index));
        return m_session->DocumentPort(drawings[static_cast<std::size_t>(index)]);
    }
    std::shared_ptr<IAcadDocument> Open(const std::string& fileName) override
    {
        return m_session->DocumentPort(AsHost([&] { return m_session->Open(fileName, {}); }));
    }

private:
    SessionRef m_session;
};

class HostApplication final : public IAcadApplication {
public:
    explicit HostApplication(SessionRef session) : m_session(std::move(session)) {}
    std::shared_ptr<IAcadDocument> ActiveDocument() override { return m_session->DocumentPort(m_session->Active()); }
    std::shared_ptr<IAcadDocuments> Documents() override { return std::make_shared<HostDocuments>(m_session); }
    std::shared_ptr<IAcadPreferences> Preferences() override { return std::make_shared<HostPreferences>(m_session); }

private:
    SessionRef m_session;
};

} // namespace

std::shared_ptr<IAcadApplication> Session::ApplicationPort()
{
    return std::make_shared<HostApplication>(shared_from_this());
}

} // namespace sm::cadhost
