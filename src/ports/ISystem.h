// SPDX-License-Identifier: GPL-3.0-or-later
// Facts of the machine and the session: locale, clock, the component itself. No operation throws.
#pragma once

#include "ports/LocalDateTime.h"

#include <cstdint>
#include <string>

namespace sm {

class ILocale {
public:
    virtual ~ILocale() = default;
    virtual char DecimalSeparator() = 0;
    virtual std::string DateSeparator() = 0;
    /// The system's "Long Time" form of a time of day.
    virtual std::string LongTime(LocalDateTime time) = 0;
    virtual std::string UpperCase(const std::string& text) = 0;
    virtual std::string LowerCase(const std::string& text) = 0;
    /// Code of a character in the system's ANSI code page; 63 ("?") when it has none there.
    virtual std::int32_t AnsiCode(char32_t character) = 0;
    /// The separator by which paths are joined. Every character of `PathSeparators` splits.
    virtual char PathJoiner() = 0;
    virtual std::string PathSeparators() = 0;
};

class IClock {
public:
    virtual ~IClock() = default;
    virtual LocalDateTime Now() = 0;
};

struct ComponentVersion {
    std::int32_t major = 0, minor = 0, revision = 0;
};

class IComponent {
public:
    virtual ~IComponent() = default;
    /// Folder from which the component was loaded, without a trailing separator.
    virtual std::string Folder() = 0;
    virtual ComponentVersion Version() = 0;
};

} // namespace sm
