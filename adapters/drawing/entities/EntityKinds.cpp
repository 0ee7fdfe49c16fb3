// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"

#include <array>
#include <unordered_map>

namespace sm::drawing {

namespace {

constexpr std::size_t kMostNames = 7; // of one kind; the compiler refuses a row that is longer

struct Row {
    EntityKind kind;
    std::array<const char*, kMostNames> names; ///< null behind the last one
};

/// In the order of the enumeration, from the first known kind on.
constexpr auto kRows = std::to_array<Row>({
#define SM_KIND(kind, ...) {EntityKind::kind, {__VA_ARGS__}},
    SM_ENTITY_KINDS(SM_KIND)
#undef SM_KIND
});
constexpr std::size_t kFirst = static_cast<std::size_t>(EntityKind::Unknown) + 1;
static_assert(kFirst + kRows.size() == static_cast<std::size_t>(EntityKind::Count));

std::unordered_map<std::string_view, EntityKind> KindsByName()
{
    std::unordered_map<std::string_view, EntityKind> kinds;
    for (const Row& row : kRows)
        for (const char* name : row.names)
            if (name != nullptr)
                kinds.emplace(name, row.kind);
    return kinds;
}

} // namespace

EntityKind KindOf(std::string_view name)
{
    static const auto kKinds = KindsByName();
    const auto found = kKinds.find(name);
    return found == kKinds.end() ? EntityKind::Unknown : found->second;
}

const char* KindName(EntityKind kind)
{
    const std::size_t index = static_cast<std::size_t>(kind) - kFirst;
    return index < kRows.size() ? kRows[index].names.front() : "UNKNOWN";
}

} // namespace sm::drawing
