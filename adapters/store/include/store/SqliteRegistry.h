// SPDX-License-Identifier: GPL-3.0-or-later
// The registry on one SQLite file per user, over the facts that the install ships.
#pragma once

#include "ports/IRegistry.h"
#include "store/SettingsFile.h"
#include "store/ValueTable.h"

#include <filesystem>
#include <memory>

namespace sm::store {

/// How the stored values are read: each when it is asked for, so that what another process writes is seen at once, or
/// all with the first question, for a run that lasts a moment and asks often; its own writes are seen either way.
enum class Reading { EachTime, Once };

/// CurrentUser: what the user stored in `file`, else the facts. LocalMachine: the facts, read only. Nothing is made or
/// opened before it is needed, and reading never makes the file. Values hold UTF-8. `complain` may be empty.
std::unique_ptr<IRegistry> OpenSqliteRegistry(const std::filesystem::path& file, ValueTable facts, Complaint complain,
                                              Reading reading = Reading::EachTime);

} // namespace sm::store
