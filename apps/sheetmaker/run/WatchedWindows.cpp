// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/WatchedWindows.h"

#include <utility>

namespace sm::app {
namespace {

class WatchedWindows final : public IWindows {
public:
    WatchedWindows(std::unique_ptr<IWindows> windows, std::function<void(const std::string&)> cancelled)
        : m_windows(std::move(windows)), m_cancelled(std::move(cancelled))
    {
    }

    std::int32_t ShowConversionSettings() override { return m_windows->ShowConversionSettings(); }
    bool ShowPageSetup(IAcadPageSetup& setup, const std::string& title) override
    {
        return m_windows->ShowPageSetup(setup, title);
    }
    std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>& names) override
    {
        return Noted(m_windows->PickPlotStyle(names), "the choice of a plot style table");
    }
    std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>& names) override
    {
        return Noted(m_windows->PickJobOptions(names), "the choice of job options");
    }
    std::optional<std::int32_t> PickPageSize(const std::vector<std::string>& names) override
    {
        return Noted(m_windows->PickPageSize(names), "the choice of a paper");
    }
    bool RunProgress(const std::function<bool(const std::function<void(double)>&)>& scan) override
    {
        return m_windows->RunProgress(scan);
    }

private:
    using Choice = std::optional<std::int32_t>;
    Choice Noted(Choice choice, const char* what)
    {
        if (!choice)
            m_cancelled(what);
        return choice;
    }

    std::unique_ptr<IWindows> m_windows;
    std::function<void(const std::string&)> m_cancelled;
};

} // namespace

std::unique_ptr<IWindows> WatchWindows(std::unique_ptr<IWindows> windows,
                                       std::function<void(const std::string&)> cancelled)
{
    return std::make_unique<WatchedWindows>(std::move(windows), std::move(cancelled));
}

} // namespace sm::app
