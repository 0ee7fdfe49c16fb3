// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/SystemPorts.h"

#include "base/process/ThisProcess.h"

#include <charconv>
#include <ctime>

namespace sm::system {
namespace {

class Clock final : public IClock {
public:
    explicit Clock(std::optional<std::int64_t> fixed) : m_fixed(fixed) {}

    LocalDateTime Now() override
    {
        if (m_fixed)
            return LocalDateTime(std::chrono::seconds(*m_fixed));
        const std::tm now = base::LocalTime(std::time(nullptr));
        const std::chrono::local_days day(std::chrono::year(now.tm_year + 1900) / (now.tm_mon + 1) / now.tm_mday);
        return day + std::chrono::hours(now.tm_hour) + std::chrono::minutes(now.tm_min) +
               std::chrono::seconds(now.tm_sec);
    }

private:
    std::optional<std::int64_t> m_fixed; ///< seconds since 1970, UTC
};

} // namespace

std::optional<std::int64_t> BuildDate(const Environment& environment)
{
    constexpr std::int64_t kLastSecond = 253'402'300'799; // of the year 9999
    const std::string text = environment("SOURCE_DATE_EPOCH").value_or("");
    std::int64_t seconds = 0;
    const char* const end = text.data() + text.size();
    const auto [next, failed] = std::from_chars(text.data(), end, seconds);
    const bool valid = failed == std::errc() && next == end && seconds >= 0 && seconds <= kLastSecond;
    return valid ? std::optional(seconds) : std::nullopt;
}

std::unique_ptr<IClock> CreateClock(const Environment& environment)
{
    const std::optional<std::int64_t> fixed = BuildDate(environment);
    if (fixed) // dates are written with the offset of the time zone
        base::LiveInUtc();
    return std::make_unique<Clock>(fixed);
}

} // namespace sm::system
