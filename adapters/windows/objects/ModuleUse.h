// SPDX-License-Identifier: GPL-3.0-or-later
// Whether anybody still uses the component.
#pragma once

namespace sm::windows {

/// Every object and every lock of a factory holds one for as long as it lives; the module stays loaded meanwhile.
class ModuleUse {
public:
    ModuleUse();
    ~ModuleUse();
    ModuleUse(const ModuleUse&) = delete;
    ModuleUse& operator=(const ModuleUse&) = delete;

    static bool Any();
    /// A factory's lock, which no object of its own stands for.
    static void Lock();
    static void Unlock();
};

} // namespace sm::windows
