// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryContract.h"

#include "TemporaryFolder.h"
#include "doubles/MemoryRegistry.h"
#include "store/OverlayRegistry.h"
#include "store/RegistryOverFacts.h"
#include "store/SqliteRegistry.h"

namespace sm {
namespace {

/// A registry with what it stands on.
struct Stand {
    store::TemporaryFolder folder;
    std::unique_ptr<IRegistry> below, registry;
};

std::unique_ptr<IRegistry> Sqlite(const Stand& stand)
{
    return store::OpenSqliteRegistry(stand.folder.Path() / "settings.sqlite", {}, {});
}

/// The registry that `fill` puts on a new stand.
std::function<std::shared_ptr<IRegistry>()> On(void (*fill)(Stand&))
{
    return [fill] {
        const auto stand = std::make_shared<Stand>();
        fill(*stand);
        return std::shared_ptr<IRegistry>(stand, stand->registry.get());
    };
}

const RegistryKind kKinds[] = {
    {"Memory", On([](Stand& stand) { stand.registry = std::make_unique<MemoryRegistry>(); })},
    {"Sqlite", On([](Stand& stand) { stand.registry = Sqlite(stand); })},
    {"OverlayOnMemory", On([](Stand& stand) {
         stand.below = std::make_unique<MemoryRegistry>();
         stand.registry = std::make_unique<store::OverlayRegistry>(*stand.below);
     })},
    {"OverlayOnSqlite", On([](Stand& stand) {
         stand.below = Sqlite(stand);
         stand.registry = std::make_unique<store::OverlayRegistry>(*stand.below);
     })},
    {"OverFacts", On([](Stand& stand) {
         stand.below = std::make_unique<MemoryRegistry>();
         stand.registry = std::make_unique<store::RegistryOverFacts>(*stand.below, "Software", store::ValueTable());
     })},
    {"OverlayThatKeepsWrites", On([](Stand& stand) {
         stand.below = Sqlite(stand);
         auto overlay = std::make_unique<store::OverlayRegistry>(*stand.below);
         overlay->KeepWrites("Name");
         stand.registry = std::move(overlay);
     })},
};

INSTANTIATE_TEST_SUITE_P(, RegistryContract, testing::ValuesIn(kKinds), NameOfRegistryKind);

} // namespace
} // namespace sm
