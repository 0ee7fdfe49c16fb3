// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/WindowsSystem.h"

#include <windows.h>

namespace sm::windows {
namespace {

using namespace std::chrono;

class WindowsClock final : public IClock {
public:
    LocalDateTime Now() override
    {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        const auto day = local_days(year(now.wYear) / now.wMonth / now.wDay);
        return day + hours(now.wHour) + minutes(now.wMinute) + seconds(now.wSecond);
    }
};

} // namespace

std::unique_ptr<IClock> CreateClock()
{
    return std::make_unique<WindowsClock>();
}

} // namespace sm::windows
