// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/ModuleUse.h"

#include <atomic>

namespace sm::windows {
namespace {

std::atomic<long> g_uses = 0;

} // namespace

ModuleUse::ModuleUse()
{
    Lock();
}

ModuleUse::~ModuleUse()
{
    Unlock();
}

bool ModuleUse::Any()
{
    return g_uses > 0;
}

void ModuleUse::Lock()
{
    ++g_uses;
}

void ModuleUse::Unlock()
{
    --g_uses;
}

} // namespace sm::windows
