// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/publishing/ChosenPublisher.h"

#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/HostError.h"
#include "settings/mdlWinReg.h"
#include "windows/publishing/AutomationPublisher.h"
#include "windows/publishing/LibraryPresence.h"

#include <utility>

namespace sm::windows {
namespace {

constexpr const char* kAsksForLibrary =
    "The setting PublishWith asks for it: with 0 in place of 2, Sheetmaker PDF publishes by itself.";
constexpr const char* kNoneOfOurOwn =
    "This component was built without a publisher: install the library, or convert the drawing's file with "
    "sheetmaker.exe.";
constexpr std::int32_t kInstallationHelp = 230;

class ChosenPublisher final : public IPublishingLibrary {
public:
    ChosenPublisher(Surroundings& surroundings, OwnPublisherMaker makeOwn)
        : m_surroundings(surroundings), m_makeOwn(std::move(makeOwn)), m_library(CreateAutomationPublisher())
    {
    }

    std::shared_ptr<IPubDoc> CreatePubDoc() override
    {
        IPublishingLibrary* const own = Own();
        if (own != nullptr && !LibraryIsWanted())
            return own->CreatePubDoc();
        std::string reason;
        const auto document = CarryOn([&] { return m_library->CreatePubDoc(); },
                                      [&](const std::string& description) { reason = description; });
        if (document)
            return *document;
        if (own == nullptr || Setting() == kPublishWithLibrary)
            Refuse(reason + ".", own != nullptr ? kAsksForLibrary : kNoneOfOurOwn);
        Log("  Note: " + reason);
        return own->CreatePubDoc();
    }

    std::shared_ptr<IConversionLog> CreateConversionLog() override
    {
        IPublishingLibrary* const own = Own();
        const bool keptByLibrary = own == nullptr || (LibraryIsWanted() && LibraryIsThere());
        auto log = (keptByLibrary ? *m_library : *own).CreateConversionLog();
        m_log = log;
        return log;
    }

private:
    IPublishingLibrary* Own()
    {
        if (m_own == nullptr)
            m_own = m_makeOwn(m_surroundings, [this](const std::string& line) { Log("  Note: " + line); });
        return m_own.get();
    }
    std::int32_t Setting() { return ReadIntegerSetting(m_surroundings, SettingNamed("PublishWith")); }
    bool LibraryIsWanted()
    {
        const std::int32_t setting = Setting();
        return setting == kPublishWithLibrary || (setting != kPublishWithOwn && LibraryIsThere());
    }
    [[noreturn]] void Refuse(const std::string& reason, const char* remedy)
    {
        Log("ERROR: " + reason);
        m_surroundings.desktop.ShowMessage({reason + "\r\n" + remedy, kProductTitle, MessageButtons::Ok,
                                            MessageIcon::Critical, HelpFilePath(m_surroundings), kInstallationHelp});
        throw HostError(reason);
    }
    /// Into the log of the run, when one is open.
    void Log(const std::string& line) noexcept
    {
        if (const auto log = m_log.lock())
            CarryOn([&] { log->WriteLogLine(line); });
    }

    Surroundings& m_surroundings;
    OwnPublisherMaker m_makeOwn;
    std::unique_ptr<IPublishingLibrary> m_library, m_own;
    std::weak_ptr<IConversionLog> m_log;
};

} // namespace

std::unique_ptr<IPublishingLibrary> CreateChosenPublisher(Surroundings& surroundings, OwnPublisherMaker makeOwn)
{
    return std::make_unique<ChosenPublisher>(surroundings, std::move(makeOwn));
}

} // namespace sm::windows
