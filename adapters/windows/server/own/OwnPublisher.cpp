// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/publishing/OwnPublisher.h"

#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "ports/ISystem.h"
#include "publisher/AttachmentLimit.h"
#include "publisher/Publisher.h"
#include "settings/mdlWinReg.h"
#include "stamptexts/StampTexts.h"

#include <fmt/format.h>
#include <set>

namespace sm::windows {
namespace {

/// What the program of the command line brings along, where it was installed with the component; a stamp's fonts are
/// found without it.
std::string ShareFolder(Surroundings& surroundings)
{
    return surroundings.component.Folder() + "/share/sheetmaker-pdf";
}

std::string Producer(Surroundings& surroundings)
{
    const ComponentVersion version = surroundings.component.Version();
    return fmt::format("Sheetmaker PDF {}.{}.{}", version.major, version.minor, version.revision);
}

} // namespace

std::unique_ptr<IPublishingLibrary> CreateOwnPublisher(Surroundings& surroundings,
                                                       std::function<void(const std::string& line)> note)
{
    publisher::PublisherOptions options;
    options.logFolder = base::ToText(base::StateFolder(base::Variable));
    options.refusesEarly = true;
    options.producer = Producer(surroundings);
    options.refuseAttachment = [&surroundings](const std::string&, std::uint64_t bytes) {
        return publisher::TooLargeToAttach(bytes, ReadIntegerSetting(surroundings, SettingNamed("AttachmentLimit")));
    };
    options.stampTexts = [share = ShareFolder(surroundings), note] {
        return stamptexts::CreateStampTexts(share,
                                            [note, told = std::set<std::string>()](const std::string& remark) mutable {
                                                if (told.insert(remark).second)
                                                    note(remark + ", in text stamps");
                                            });
    };
    options.observer.note = std::move(note);
    return publisher::CreatePublisher(options, surroundings.desktop);
}

} // namespace sm::windows
