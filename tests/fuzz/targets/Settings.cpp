// SPDX-License-Identifier: GPL-3.0-or-later
// The settings database, whatever somebody put in its place.
#include "fuzz/Target.h"
#include "fuzz/targets/Scratch.h"
#include "fuzz/targets/Targets.h"
#include "store/SettingsFile.h"

#include <filesystem>

namespace sm::fuzz {

namespace {

const std::string kKey = "Software\\Own\\General"; // NOLINT: a short constant text

void Empty(const std::filesystem::path& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove(entry.path());
}

} // namespace

/// Reads, then writes every eighth input: writing waits for the disk.
void FuzzSettings(std::string_view input)
{
    static const std::string kFolder = [] {
        std::string folder = ScratchFolder() + "/settings";
        std::filesystem::create_directory(folder);
        return folder;
    }();
    const std::string path = WriteScratch("settings/settings.sqlite", input);
    {
        unsigned complaints = 0;
        store::SettingsFile file(path, [&](const std::string& text) {
            CheckReason(text, "The settings file ");
            ++complaints;
        });
        const bool canRead = file.CanRead();
        (void)file.HasKey(kKey);
        (void)file.Read(kKey, "Quality");
        (void)file.ReadAll();
        if (!canRead && complaints == 0)
            Fail("settings that can't be read are told");
        const store::StoredValue value{RegistryType::String, "new"};
        if (input.size() % 8 == 0 && file.Write(kKey, "Fresh", value) && file.Read(kKey, "Fresh") != value)
            Fail("a setting that was written is read again");
    }
    Empty(kFolder);
}

Inputs SettingsSeeds()
{
    Inputs seeds{"", std::string("SQLite format 3\0", 16)};
    const std::string path = ScratchFolder() + "/seed.sqlite";
    {
        store::Database database(path, store::Database::Mode::Create);
        database.Run("PRAGMA page_size = 512");
    }
    {
        store::SettingsFile file(path, {});
        (void)file.Write(kKey, "Quality", {RegistryType::String, "draft"});
        (void)file.Write(kKey, "Count", {RegistryType::Binary, std::string(600, 'x')});
    }
    {
        store::Database database(path, store::Database::Mode::Existing);
        (void)database.Text("PRAGMA journal_mode = DELETE");
    }
    seeds.push_back(ReadScratch(path));
    for (const char* ending : {"", "-wal", "-shm"})
        std::filesystem::remove(path + ending);
    return seeds;
}

} // namespace sm::fuzz
