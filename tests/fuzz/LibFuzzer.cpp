// SPDX-License-Identifier: GPL-3.0-or-later
// libFuzzer's side of the targets: $FUZZ_TARGET names the one that a process runs.
#include "fuzz/Mutator.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

const sm::fuzz::Target& Chosen()
{
    static const sm::fuzz::Target* const kTarget = [] {
        const char* name = std::getenv("FUZZ_TARGET");
        const auto* target = sm::fuzz::FindTarget(name != nullptr ? name : "");
        if (target == nullptr) {
            std::fprintf(stderr, "FUZZ_TARGET names no target (replay --list has them)\n");
            std::exit(2);
        }
        return target;
    }();
    return *kTarget;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Chosen().run({reinterpret_cast<const char*>(data), size});
    return 0;
}

/// Half of the changes are libFuzzer's own; the other half keeps pairs and lines whole.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed)
{
    const sm::fuzz::Target& target = Chosen();
    if (target.changes == sm::fuzz::Changes::Bytes || seed % 2 == 0)
        return LLVMFuzzerMutate(data, size, most);
    static const std::vector<std::string> kSeeds = target.seeds();
    sm::fuzz::Mutator mutator(target, kSeeds, seed);
    const std::string changed = mutator.MutatedWhole({reinterpret_cast<const char*>(data), size});
    const std::size_t length = changed.size() < most ? changed.size() : most;
    std::memcpy(data, changed.data(), length);
    return length;
}
