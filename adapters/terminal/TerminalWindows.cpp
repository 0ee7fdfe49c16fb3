// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/TerminalWindows.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace sm::terminal {
namespace {

constexpr const char* kNoStyle = "None";

std::string Joined(const std::vector<std::string>& names)
{
    return names.empty() ? "none" : fmt::format("{}", fmt::join(names, ", "));
}

/// Takes the progress line away again, whatever ends the scan.
class ProgressEnd {
public:
    explicit ProgressEnd(Console& console) : m_console(console) {}
    ~ProgressEnd() { m_console.ClearProgress(); }
    ProgressEnd(const ProgressEnd&) = delete;
    ProgressEnd& operator=(const ProgressEnd&) = delete;

private:
    Console& m_console;
};

class TerminalWindows final : public IWindows {
public:
    TerminalWindows(Console& console, WindowsOptions options) : m_console(console), m_options(std::move(options)) {}

    std::int32_t ShowConversionSettings() override
    {
        m_console.Line("There is no screen for the settings dialog: \"sheetmaker list\", \"sheetmaker get\" and "
                       "\"sheetmaker set\" show and change the settings.");
        return 0;
    }

    bool ShowPageSetup(IAcadPageSetup&, const std::string&) override
    {
        m_console.Line("There is no screen for the page setup dialog: \"sheetmaker convert --page-setup\" chooses the "
                       "page setup, \"sheetmaker set\" changes the global one.");
        return false;
    }

    std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>& names) override
    {
        const auto none = std::find(names.begin(), names.end(), kNoStyle);
        if (none == names.end())
            return Refuse("The plot style table wasn't found.");
        m_console.Line("warning: the plot style table wasn't found; plotting without one");
        return static_cast<std::int32_t>(none - names.begin());
    }

    std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>& names) override
    {
        return Refuse("The job options can't be used. Those installed are: " + Joined(names) + ".");
    }

    std::optional<std::int32_t> PickPageSize(const std::vector<std::string>& names) override;

    bool RunProgress(const std::function<bool(const std::function<void(double)>&)>& scan) override
    {
        const ProgressEnd end(m_console);
        return scan([this](double percent) {
            m_console.Progress(fmt::format("scanning for hyperlinks and attributes: {:.0f} %",
                                           std::clamp(std::isfinite(percent) ? percent : 0.0, 0.0, 100.0)));
        });
    }

private:
    std::nullopt_t Refuse(const std::string& reason)
    {
        m_console.Line("error: " + reason);
        if (m_options.refused)
            m_options.refused(reason);
        return std::nullopt;
    }

    Console& m_console;
    WindowsOptions m_options;
};

std::optional<std::int32_t> TerminalWindows::PickPageSize(const std::vector<std::string>& names)
{
    const std::string remedy = "--page-setup global takes that of the global page setup.";
    const std::optional<Paper> wanted = m_options.wantedPaper ? m_options.wantedPaper() : std::nullopt;
    if (!wanted)
        return Refuse("The sheet's paper isn't among the sizes of the PDF plotter, and its size isn't known; " +
                      remedy);
    const std::string size = fmt::format("{:.0f} x {:.0f} mm", wanted->width, wanted->height);
    const std::optional<std::int32_t> chosen = NearestLarger(names, *wanted);
    if (!chosen)
        return Refuse("The sheet's paper of " + size + " is larger than every size of the PDF plotter; " + remedy);
    m_console.Line("warning: there is no paper of " + size + "; plotting on " +
                   names[static_cast<std::size_t>(*chosen)]);
    return chosen;
}

} // namespace

std::unique_ptr<IWindows> CreateTerminalWindows(Console& console, WindowsOptions options)
{
    return std::make_unique<TerminalWindows>(console, std::move(options));
}

} // namespace sm::terminal
