// SPDX-License-Identifier: GPL-3.0-or-later
// Every call of the host, the registry and the library under the settings dialog fails once, and from there onwards,
// with a real drawing open: its file is the old one or the complete new one, and the dialog reports as laid down.
#include "app/FailingDocument.h"
#include "app/Fixtures.h"
#include "cadhost/CadHost.h"
#include "cadhost/HostOptions.h"
#include "doubles/ScriptedToolkit.h"
#include "doubles/TestHouse.h"
#include "plugin/cPlugin.h"
#include "screen/ScreenRun.h"
#include "ui/FormWindows.h"

#include <sstream>

namespace sm::app {
namespace {

void ChangeAndConfirm(FormDriver& user)
{
    user.Click("optSpeed");
    user.Tick("chkPageSetup", true);
    user.ChooseAt("cmbStampText", 2);
    user.TypeAndLeave("txtStampX", "12.5");
    user.Click("btnOK");
}

/// One showing of the dialog over the real host, and the saving that follows.
class Showing {
public:
    explicit Showing(const std::string& drawing) : m_drawing(drawing)
    {
        cadhost::HostOptions options;
        options.shareFolder = SM_SOURCE_DIR "/share/sheetmaker-pdf";
        m_host = cadhost::CadHost::Create(options);
        m_document = std::make_shared<FailingDocument>(m_host->Open(drawing), Plan());
        m_application = std::make_shared<FailingApplication>(m_host->Application(), m_document, Plan());
        m_house.host.tape.faults = &Plan();
        m_house.library.tape.faults = &Plan();
        m_toolkit.Whenever("frmGUITap", ChangeAndConfirm);
    }

    /// How many calls were made to fail.
    int Run(FaultPlan::Mode mode, int countdown)
    {
        const auto windows = CreateFormWindows(m_context, m_toolkit);
        m_windows.inner = windows.get();
        Plan() = {mode, countdown};
        cPlugin plugin(m_context);
        IPlugin& frontEnd = plugin;
        frontEnd.Initialize(m_application);
        frontEnd.ShowSettings(0, 0, 0);
        try {
            if (m_watcher.SettingsKept())
                SaveWhole(m_watcher, *m_document, m_drawing);
        } catch (const std::exception& error) {
            refusal = error.what();
        }
        const int injected = Plan().injected;
        Plan() = {};
        told = !m_house.desktop.TakeMessages().empty();
        log = m_house.library.TakeLog();
        return injected;
    }

    std::string refusal; ///< why the drawing wasn't written
    bool told = false;   ///< a message was shown
    std::vector<std::string> log;

private:
    /// What the context is made with before the windows can be.
    struct Windows final : IWindows {
        IWindows* inner = nullptr;
        std::int32_t ShowConversionSettings() override { return inner->ShowConversionSettings(); }
        bool ShowPageSetup(IAcadPageSetup& setup, const std::string& title) override
        {
            return inner->ShowPageSetup(setup, title);
        }
        std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>& names) override
        {
            return inner->PickPlotStyle(names);
        }
        std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>& names) override
        {
            return inner->PickJobOptions(names);
        }
        std::optional<std::int32_t> PickPageSize(const std::vector<std::string>& names) override
        {
            return inner->PickPageSize(names);
        }
        bool RunProgress(const std::function<bool(const std::function<void(double)>&)>& scan) override
        {
            return inner->RunProgress(scan);
        }
    };
    FaultPlan& Plan() { return m_house.failingRegistry.faults; }

    std::string m_drawing;
    HouseParts m_house;
    DrawingReport m_report;
    std::ostringstream m_said;
    terminal::Console m_console{m_said, false};
    SheetWatcher m_watcher{m_report, m_console};
    Windows m_windows;
    Surroundings m_surroundings{
        m_house.failingRegistry, m_house.failingFiles, m_house.desktop,   m_windows, m_house.library,
        m_house.locale,          m_house.clock,        m_house.component, m_watcher};
    CallContext m_context{m_surroundings, nullptr, nullptr, nullptr};
    ScriptedToolkit m_toolkit;
    std::unique_ptr<cadhost::CadHost> m_host;
    std::shared_ptr<IAcadDocument> m_document;
    std::shared_ptr<IAcadApplication> m_application;
};

class DrawingFaults : public testing::TestWithParam<FaultPlan::Mode> {
protected:
    std::string Sample() const
    {
        const std::string drawing = m_machine.In("house.dxf");
        std::filesystem::remove(drawing + ".bak");
        std::filesystem::copy_file(SM_SOURCE_DIR "/samples/house.dxf", drawing,
                                   std::filesystem::copy_options::overwrite_existing);
        return drawing;
    }
    Machine m_machine;
};

TEST_P(DrawingFaults, LeaveTheOldDrawingOrTheWholeNewOne)
{
    const std::string drawing = Sample(), before = Contents(drawing);
    EXPECT_EQ(Showing(drawing).Run(FaultPlan::Mode::None, 0), 0);
    const std::string complete = Contents(drawing);
    ASSERT_NE(complete, before);
    int refused = 0, written = 0, injected = 1;
    for (int countdown = 1; injected > 0; ++countdown) {
        SCOPED_TRACE("call " + std::to_string(countdown));
        Sample();
        Showing showing(drawing);
        injected = showing.Run(GetParam(), countdown);
        const std::string now = Contents(drawing);
        if (now == before) {
            refused += showing.refusal.empty() ? 0 : 1;
            EXPECT_TRUE(showing.told || !showing.refusal.empty()) << "nobody was told";
            EXPECT_FALSE(std::filesystem::exists(drawing + ".bak"));
        } else {
            // A call that is carried past may leave a setting or a list as it was; the records are all there.
            ++written;
            for (const char* record : {"TWSI_PltSel", "TWSI_Plots", "TWSI_Stamp"})
                EXPECT_NE(now.find(record), std::string::npos) << record;
            EXPECT_EQ(showing.refusal, "");
            EXPECT_EQ(Contents(drawing + ".bak"), before);
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(written, 0);
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, DrawingFaults,
                         testing::Values(FaultPlan::Mode::Once, FaultPlan::Mode::Onwards), [](const auto& row) {
                             return std::string(row.param == FaultPlan::Mode::Once ? "Once" : "ForGood");
                         });

} // namespace
} // namespace sm::app
