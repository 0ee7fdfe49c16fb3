// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FormWindows.h"

#include "hostobjects/RecordPageSetup.h"
#include "plotting/PaperTable.h"
#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "settings/DrawingValues.h"
#include "settings/mdlDataKegIO.h"
#include "ui/Pickers.h"
#include "ui/frmPageSetup.h"
#include "ui/frmProgress.h"
#include "ui/mdlGUITap.h"

#include <exception>
#include <utility>

namespace sm {
namespace {

class FormWindows final : public IWindows {
public:
    FormWindows(CallContext& context, IFormToolkit& toolkit, SettingsReader* reader,
                std::function<std::vector<std::string>()> plotStyles)
        : m_context(context), m_toolkit(toolkit), m_reader(reader), m_plotStyles(std::move(plotStyles))
    {
    }

    std::int32_t ShowConversionSettings() override
    {
        return sm::ShowConversionSettings(m_context, m_toolkit, m_reader);
    }
    bool ShowPageSetup(IAcadPageSetup& setup, const std::string& title) override;
    std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>& names) override
    {
        return Pick<frmPlotStyle>(names);
    }
    std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>& names) override
    {
        return Pick<frmJobOpts>(names);
    }
    std::optional<std::int32_t> PickPageSize(const std::vector<std::string>& names) override
    {
        return Pick<frmPageSize>(names);
    }
    bool RunProgress(const std::function<bool(const std::function<void(double)>& advance)>& scan) override;

private:
    using Choice = std::optional<std::int32_t>;

    template <class PickerForm> Choice Pick(const std::vector<std::string>& names)
    {
        return CarryPast(m_context, "PickFrom",
                         [&] {
                             FormSession session{m_context, m_toolkit, {}};
                             PickerForm picker(session);
                             return PickFrom(picker, names);
                         })
            .value_or(Choice(-1));
    }
    bool AskPageSetup(IAcadPageSetup& setup, const std::string& title);
    std::vector<std::string> PlotStyles();

    CallContext& m_context;
    IFormToolkit& m_toolkit;
    SettingsReader* m_reader;
    std::function<std::vector<std::string>()> m_plotStyles; ///< of no drawing
};

std::vector<std::string> FormWindows::PlotStyles()
{
    const auto names = CarryPast(m_context, "PlotStyles", [&] {
        if (m_context.g_AcadDoc == nullptr && m_plotStyles) {
            std::vector<std::string> styles = m_plotStyles();
            styles.insert(styles.begin(), "None");
            return styles;
        }
        return PlotStyleNames(m_context, *Present(ActiveDrawing(m_context).ActiveLayout(), "ActiveLayout"));
    });
    return names.value_or(std::vector<std::string>{"None"});
}

bool FormWindows::ShowPageSetup(IAcadPageSetup& setup, const std::string& title)
{
    return GiveUp([&] { return AskPageSetup(setup, title); },
                  [&](const std::string& description) {
                      TryLogLine(m_context, "RUNTIME ERROR: ShowPageSetup -" + description);
                      OfferConversionLog(m_context);
                      return false;
                  });
}

bool FormWindows::AskPageSetup(IAcadPageSetup& setup, const std::string& title)
{
    FormSession session{m_context, m_toolkit, {}};
    frmPageSetup form(session);
    std::vector<PaperSize> papers;
    LoadPaperTable(papers);
    PageSetupRecord record = RecordOf(setup);
    form.Load();
    form.SetCaption(form.Name(), title);
    if (!SetPageSetupTab(form.PageSetup(), {record, papers, PlotStyles()}))
        throw HostError("SetPageSetupTab failed.");
    const ReaderInForce inForce(m_reader, [&form](DataKeg& keg) {
        keg.PageSetupSelected = kPageSetupCustom;
        std::int32_t selection = 0;
        return !keg.Layouts.empty() &&
               SavePageSetupTab(form.PageSetup(), LayoutSettings(), keg.Layouts.front().PageSetup, selection);
    });
    if (!form.ShowModal() || !form.IsConfirmed())
        return false;
    std::int32_t selection = 0;
    if (!SavePageSetupTab(form.PageSetup(), LayoutSettings(), record, selection))
        throw HostError("SavePageSetupTab failed.");
    setup.CopyFrom(*MakeRecordPageSetup(record));
    return true;
}

bool FormWindows::RunProgress(const std::function<bool(const std::function<void(double)>&)>& scan)
{
    std::exception_ptr error;
    const auto run = [&](const std::function<void(double)>& advance) {
        return GiveUp([&] { return scan(advance); },
                      [&](const std::string&) {
                          error = std::current_exception();
                          return false;
                      });
    };
    FormSession session{m_context, m_toolkit, {}};
    frmProgress progress(session);
    bool finished = false;
    progress.Scan = [&] { finished = run([&](double perCent) { progress.Advance(perCent); }); };
    progress.ShowModal();
    progress.UnloadFlag = true;
    if (progress.Scan) // no window came up: the scan runs all the same
        finished = run([](double) {});
    if (error)
        std::rethrow_exception(error);
    return finished;
}

} // namespace

std::unique_ptr<IWindows> CreateFormWindows(CallContext& context, IFormToolkit& toolkit, SettingsReader* reader,
                                            std::function<std::vector<std::string>()> plotStyles)
{
    return std::make_unique<FormWindows>(context, toolkit, reader, std::move(plotStyles));
}

} // namespace sm
