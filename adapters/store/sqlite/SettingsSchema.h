// SPDX-License-Identifier: GPL-3.0-or-later
// How the settings lie in the file.
#pragma once

namespace sm::store {

inline constexpr int kApplicationId = 0x536d5064; ///< "SmPd" in the file's header marks it as ours
inline constexpr int kSchemaVersion = 1;

inline constexpr const char* kMakeSchema = R"(
CREATE TABLE reg_key(
    id INTEGER PRIMARY KEY,
    path TEXT NOT NULL,
    folded TEXT NOT NULL UNIQUE);
CREATE TABLE reg_value(
    key INTEGER NOT NULL REFERENCES reg_key(id) ON DELETE CASCADE,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY(key, folded)) WITHOUT ROWID;
PRAGMA application_id = 1399672932;
PRAGMA user_version = 1;
)";

} // namespace sm::store
