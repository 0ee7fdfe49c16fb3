#include "pages/TemporaryFolder.h"

#include "pdf/PublishStatus.h"

namespace sm::publisher {

TemporaryFolder::TemporaryFolder(const std::string& parent)
try : m_folder(parent) {
} catch (const process::FolderFailure& failure) {
    throw PublishFailure(failure.DiskFull() ? PublishStatus::DiskFull : PublishStatus::WorkFolderUnusable,
                         failure.what());
}

} // namespace sm::publisher
