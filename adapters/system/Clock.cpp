#include "system/SystemPorts.h"

#include <ctime>

namespace sm::system {
namespace {

class Clock final : public IClock {
public:
    LocalDateTime Now() override
    {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        if (!localtime_r(&now, &local))
            return LocalDateTime(std::chrono::seconds(now));
        return LocalDateTime(std::chrono::seconds(now + local.tm_gmtoff));
    }
};

} // namespace

std::unique_ptr<IClock> CreateClock()
{
    return std::make_unique<Clock>();
}

} // namespace sm::system
