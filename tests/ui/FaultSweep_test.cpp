// SPDX-License-Identifier: GPL-3.0-or-later
// Every host, registry, library and file call under the forms is made to fail.
#include "doubles/FaultSweep.h"

#include "doubles/ScriptedToolkit.h"
#include "hostobjects/cAcadPageSetup.h"
#include "ui/FormWindows.h"

#include <algorithm>

namespace sm {
namespace {

/// A user who touches everything that calls out, and puts up with whatever doesn't work.
void PlayTheUser(ScriptedToolkit& toolkit)
{
    auto showings = std::make_shared<int>(0);
    toolkit.Whenever("frmGUITap", [showings](FormDriver& it) {
        const auto pressIfUsable = [&](const char* name) {
            if (it.IsReachable(name))
                it.Click(name);
        };
        switch ((*showings)++) {
        case 0:
            it.Tick("chkTransferAttributes", true);
            it.Tick("chkPageSetup", false);
            it.Tick("chkPageSetup", true);
            it.ChooseAt("cmbStampText", 1);
            pressIfUsable("btnStampEdit");
            it.Click("btnHelp");
            return it.Click("btnWindowPoints");
        case 1:
            return it.Click("btnStampPoints");
        case 2:
            return it.Click("btnAttachAdd");
        case 3:
            return it.Click("btnDigSigAdd");
        default:
            return it.Click("btnPDF");
        }
    });
    toolkit.Whenever("frmCustomStamp", [](FormDriver& it) { it.Click("btnOk"); });
    auto attached = std::make_shared<int>(0), signedOff = std::make_shared<int>(0);
    toolkit.Whenever("frmAttach", [attached](FormDriver& it) {
        it.Type("txtAttachFile", "C:\\Docs\\a.txt");
        it.Click("btnAttachBrowse");
        it.Click((*attached)++ == 0 ? "btnAttachPoints" : "btnCancel");
    });
    toolkit.Whenever("frmDigSig",
                     [signedOff](FormDriver& it) { it.Click((*signedOff)++ == 0 ? "btnDigSigPoints" : "btnCancel"); });
}

void Prepare(HouseParts& house)
{
    house.BeginCall();
    house.drawing->XData["TWSI_PltSel"] = {{1001, 1000}, {std::string("TWSI_PltSel"), std::string("1")}};
    house.drawing->Views = {{"Plan", {}, 1, 1}};
    house.drawing->PointsPicked = {{1, 2, 0}, {3, 4, 0}, {5, 6, 0}, {7, 8, 0}, {9, 10, 0}, {11, 12, 0}};
}

/// 1 with nothing but the first line, 0 with the message that belongs to it, and a log that says why.
void ExpectLaidDownEnd(HouseParts& house, std::int32_t answer)
{
    std::vector<std::string> log = house.library.TakeLog();
    if (!log.empty() && log.front() == "SHOW CONVERSION SETTINGS FORM") // the log itself may have failed
        log.erase(log.begin());
    const std::vector<Message> messages = house.desktop.TakeMessages();
    const auto shown = [&](const char* beginning) {
        return std::any_of(messages.begin(), messages.end(),
                           [&](const Message& message) { return message.text.rfind(beginning, 0) == 0; });
    };
    const bool unknownError = shown("An unknown error occurred"), notInitialized = shown("Before converting to PDF");
    EXPECT_TRUE(answer == 0 || answer == 1);
    EXPECT_EQ(answer == 0, unknownError || notInitialized);
    EXPECT_FALSE(unknownError && notInitialized);
    for (const std::string& line : log)
        EXPECT_EQ(line.rfind("RUNTIME ERROR: ", 0), 0U) << line;
    if (answer == 1) { // a tab that could not be filled anew on the way is logged, and no more
        EXPECT_LE(log.size(), 1U);
    } else if (unknownError && !log.empty()) {
        EXPECT_EQ(log.back().rfind("RUNTIME ERROR: ShowConversionSettings -", 0), 0U) << log.back();
    }
}

class FormFaultSweep : public testing::TestWithParam<FaultySide> {};

TEST_P(FormFaultSweep, TheSettingsDialogEndsAsLaidDown)
{
    SweepFaults(GetParam(), {Prepare,
                             [&](HouseParts& house) {
                                 ScriptedToolkit toolkit;
                                 PlayTheUser(toolkit);
                                 const auto forms = CreateFormWindows(house.context, toolkit);
                                 const std::int32_t answer = forms->ShowConversionSettings();
                                 ExpectLaidDownEnd(house, answer);
                             },
                             [](HouseParts& house) {
                                 ScriptedToolkit toolkit;
                                 toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnPDF"); });
                                 EXPECT_EQ(CreateFormWindows(house.context, toolkit)->ShowConversionSettings(), 1);
                                 EXPECT_EQ(house.library.TakeLog(),
                                           (std::vector<std::string>{"SHOW CONVERSION SETTINGS FORM"}));
                             }});
}

TEST(PageSetupFaultSweep, ThePageSetupDialogIsConfirmedOrTold)
{
    SweepFaults(FaultySide::Everything, {Prepare,
                                         [](HouseParts& house) {
                                             ScriptedToolkit toolkit;
                                             toolkit.Whenever("frmPageSetup", [](FormDriver& it) {
                                                 it.Choose("cmbPaperSize", "ISO A4 (210.00 x 297.00 MM)");
                                                 it.Click("btnOK");
                                             });
                                             cAcadPageSetup setup(house.context);
                                             std::shared_ptr<IAcadDocument> none;
                                             (void)setup.Initialize(2, none);
                                             const auto forms = CreateFormWindows(house.context, toolkit);
                                             const bool confirmed = forms->ShowPageSetup(setup, "Global Page Setup");
                                             EXPECT_EQ(confirmed, house.desktop.TakeMessages().empty());
                                             EXPECT_EQ(setup.IsChanged(), confirmed);
                                             setup.Update();
                                         },
                                         [](HouseParts& house) { (void)house.library.TakeLog(); }});
}

INSTANTIATE_TEST_SUITE_P(Sides, FormFaultSweep,
                         testing::Values(FaultySide::Everything, FaultySide::Host, FaultySide::Library,
                                         FaultySide::Registry, FaultySide::Files),
                         [](const auto& row) { return NameOf(row.param); });

} // namespace
} // namespace sm
