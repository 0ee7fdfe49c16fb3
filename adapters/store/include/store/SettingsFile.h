// SPDX-License-Identifier: GPL-3.0-or-later
// The file that holds one user's settings: made on first need, checked when opened, put aside when it is damaged.
#pragma once

#include "store/Database.h"
#include "store/ValueTable.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace sm::store {

/// Gets each trouble once, as one sentence for the user.
using Complaint = std::function<void(const std::string&)>;

/// Keys and values of one root. Nothing here throws. Many processes may work on the file at once, each with an object
/// of its own; one object belongs to one thread.
class SettingsFile {
public:
    SettingsFile(std::filesystem::path file, Complaint complain);
    ~SettingsFile();
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

    /// False, with a complaint, when there are settings and they can't be read: what isn't known isn't a default.
    bool CanRead();
    /// The key itself, or one below it, is there. Reading never makes the file.
    bool HasKey(const std::string& path);
    std::optional<StoredValue> Read(const std::string& path, const std::string& name);
    /// Every key and value, under CurrentUser; nothing when the file isn't there or can't be read.
    ValueTable ReadAll();
    /// False when the file can't be written.
    bool AddKey(const std::string& path);
    bool Write(const std::string& path, const std::string& name, const StoredValue& value);

private:
    using Work = std::function<void(Database&)>;
    bool Do(Database::Mode mode, const Work& work);
    bool Try(Database::Mode mode, const Work& work);
    bool ReadAsItStands(const Work& work);
    bool Ready(Database::Mode mode);
    void PutAside(const std::string& reason);
    void Complain(const std::string& text);

    std::filesystem::path m_file;
    Complaint m_complain;
    std::unique_ptr<Database> m_database;
    std::uint64_t m_fileNumber = 0; ///< which file is open, so that one put aside by another process is let go
    bool m_failed = false;          ///< the last work on it
    bool m_newer = false;           ///< written by a later version: left alone
    std::string m_lastComplaint;
};

} // namespace sm::store
