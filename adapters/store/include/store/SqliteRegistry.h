// The registry on one SQLite file per user, over the facts that the install ships.
#pragma once

#include "ports/IRegistry.h"
#include "store/SettingsFile.h"
#include "store/ValueTable.h"

#include <filesystem>
#include <memory>

namespace sm::store {

/// CurrentUser: what the user stored in `file`, else the facts. LocalMachine: the facts, read only. Nothing is made or
/// opened before it is needed, and reading never makes the file. Values hold UTF-8. `complain` may be empty.
std::unique_ptr<IRegistry> OpenSqliteRegistry(const std::filesystem::path& file, ValueTable facts, Complaint complain);

} // namespace sm::store
