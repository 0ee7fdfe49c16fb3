// SPDX-License-Identifier: GPL-3.0-or-later
// How many handles a process holds, which Wine tells only through the list of all handles of the system.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>
#include <winternl.h>

namespace sm::windows {

/// One entry of the system's list (class 16), as the system lays it out.
struct ListedHandle {
    USHORT processId, backTrace;
    UCHAR type, attributes;
    USHORT value;
    void* object;
    ULONG access;
};

/// Handles of this process.
inline std::size_t CountHandles()
{
    constexpr auto kListOfHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004U);
    std::vector<std::uint64_t> list(1 << 14);
    ULONG length = 0;
    while (NtQuerySystemInformation(kListOfHandles, list.data(), static_cast<ULONG>(list.size() * 8), &length) ==
           kTooSmall)
        list.resize(list.size() * 2);
    // The entries begin where a pointer may.
    const auto count = static_cast<std::uint32_t>(list[0]);
    const auto* const entries =
        reinterpret_cast<const ListedHandle*>(reinterpret_cast<const char*>(list.data()) + sizeof(void*));
    std::size_t own = 0;
    for (std::uint32_t i = 0; i < count; ++i)
        own += entries[i].processId == static_cast<USHORT>(GetCurrentProcessId()) ? 1 : 0;
    return own;
}

} // namespace sm::windows
