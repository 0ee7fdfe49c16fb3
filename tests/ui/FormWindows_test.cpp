// SPDX-License-Identifier: GPL-3.0-or-later
// The pickers and the progress window, as their callers see them.
#include "ui/FormWindows.h"

#include "ui/Pickers.h"
#include "ui/UiStand.h"
#include "ui/frmProgress.h"

#include "ports/HostError.h"

namespace sm {
namespace {

class FormWindowsStand : public UiStand {
protected:
    std::unique_ptr<IWindows> forms = CreateFormWindows(context, toolkit);
};

struct PickerRow {
    const char* form;
    const char* warning;
    const char* label;
    const char* combo;
    std::optional<std::int32_t> (IWindows::*pick)(const std::vector<std::string>&);
};

const PickerRow kPickers[] = {
    {"frmPlotStyle", "The selected plot style could not be found.  Please choose one from the list below:",
     "Plot Style Table:", "cmbPlotStyle", &IWindows::PickPlotStyle},
    {"frmJobOpts", "The Raster Image Quality Settings could not be located.  Please choose one from the list below:",
     "Resolution:", "cmbJobOpts", &IWindows::PickJobOptions},
    {"frmPageSize",
     "The correct paper size was not available for the PDF file.  Please choose one from the list below:",
     "Paper Size:", "cmbPageSize", &IWindows::PickPageSize},
};

const std::vector<std::string> kNames = {"first", "second", "third"};

class Picking : public FormWindowsStand {
protected:
    std::optional<std::int32_t> Pick(const PickerRow& row, const std::vector<std::string>& names)
    {
        return (forms.get()->*row.pick)(names);
    }
};

TEST_F(Picking, ShowsTheListWithItsFirstEntryChosen)
{
    for (const PickerRow& row : kPickers) {
        toolkit.When(row.form, [&](FormDriver& user) {
            EXPECT_EQ(user.Title(), "Tarnwick Sheetmaker PDF");
            EXPECT_EQ(user.Caption("Label2"), row.warning);
            EXPECT_EQ(user.Caption("Label1"), row.label);
            EXPECT_EQ(user.Control("imgWarning").picture, "warning");
            EXPECT_EQ(user.Items(row.combo), kNames);
            EXPECT_EQ(user.Text(row.combo), "first");
            user.Click("btnOK");
        });
        EXPECT_EQ(Pick(row, kNames), 0) << "OK without touching the combo is the first entry";
    }
}

TEST_F(Picking, GivesThePositionChosen)
{
    for (const PickerRow& row : kPickers) {
        toolkit.When(row.form, [&](FormDriver& user) {
            user.Choose(row.combo, "third");
            EXPECT_TRUE(user.Enter(row.combo));
        });
        EXPECT_EQ(Pick(row, kNames), 2);
    }
}

TEST_F(Picking, CancelEscapeAndTheCloseBoxChooseNothing)
{
    const std::pair<const char*, std::function<void(FormDriver&)>> ways[] = {
        {"cancel", [](FormDriver& user) { user.Click("btnCancel"); }},
        {"escape", [](FormDriver& user) { EXPECT_TRUE(user.Escape()); }},
        {"close box", [](FormDriver& user) { user.Close(); }},
    };
    for (const PickerRow& row : kPickers) {
        for (const auto& [name, leave] : ways) {
            SCOPED_TRACE(std::string(row.form) + " " + name);
            toolkit.When(row.form, [&, &way = leave](FormDriver& user) {
                user.Choose(row.combo, "second");
                way(user);
                EXPECT_EQ(user.Control(row.combo).selection, -1);
            });
            EXPECT_EQ(Pick(row, kNames), std::nullopt);
        }
    }
}

TEST_F(Picking, AnEmptyListIsCancelled)
{
    for (const PickerRow& row : kPickers) {
        toolkit.When(row.form, [](FormDriver& user) { user.Click("btnOK"); });
        EXPECT_EQ(Pick(row, {}), std::nullopt);
    }
}

TEST_F(Picking, WithoutAScreenThePickerHasFailed)
{
    toolkit.hasScreen = false;
    for (const PickerRow& row : kPickers)
        EXPECT_EQ(Pick(row, kNames), -1);
}

class Progress : public FormWindowsStand {};

TEST_F(Progress, PaintsItselfRunsTheScanAndGoesAway)
{
    Texts order;
    const bool finished = forms->RunProgress([&](const auto& advance) {
        order = toolkit.events;
        advance(0.4);
        advance(10);
        advance(10.9);
        advance(1000);
        return true;
    });
    EXPECT_TRUE(finished);
    EXPECT_EQ(order, (Texts{"show frmProgress", "pump frmProgress"}));
    EXPECT_EQ(toolkit.events, (Texts{"show frmProgress", "pump frmProgress", "pump frmProgress", "pump frmProgress",
                                     "hide frmProgress"}));
}

TEST_F(Progress, HandsTheScansResultBack)
{
    EXPECT_FALSE(forms->RunProgress([](const auto&) { return false; }));
}

TEST_F(Progress, PassesOnWhatTheScanThrowsOnceTheWindowIsClosed)
{
    EXPECT_THROW(forms->RunProgress([](const auto&) -> bool { throw HostError("damaged block"); }), HostError);
    EXPECT_EQ(toolkit.events.back(), "hide frmProgress");
    EXPECT_EQ(observer.carriedPast, Texts{});
    EXPECT_THROW(forms->RunProgress([](const auto&) -> bool { throw 7; }), int);
}

TEST_F(Progress, RunsTheScanWithoutAWindowWhereThereIsNoScreen)
{
    toolkit.hasScreen = false;
    int runs = 0;
    EXPECT_TRUE(forms->RunProgress([&](const auto& advance) {
        advance(50);
        return ++runs == 1;
    }));
    EXPECT_EQ(runs, 1);
}

TEST_F(Progress, RefusesToCloseWhileItScans)
{
    frmProgress progress(session);
    FormDriver user(progress);
    bool wasShown = false;
    progress.Scan = [&] {
        EXPECT_EQ(user.Title(), "Tarnwick Sheetmaker PDF");
        EXPECT_EQ(user.Caption("lblStatus"), "Status: Scanning for Hyperlinks and File Attributes");
        EXPECT_EQ(user.Control("prgStatus").value, 0);
        progress.Advance(42.9);
        EXPECT_EQ(user.Control("prgStatus").value, 42);
        user.Close();
        EXPECT_FALSE(user.Escape());
        wasShown = toolkit.events.back() != "hide frmProgress";
    };
    EXPECT_TRUE(progress.ShowModal());
    EXPECT_TRUE(wasShown);
    EXPECT_EQ(toolkit.events.back(), "hide frmProgress");
}

TEST_F(Progress, MayBeClosedOnceItIsToBeUnloaded)
{
    frmProgress progress(session);
    progress.UnloadFlag = true;
    bool stillShown = true;
    FormDriver user(progress);
    progress.Scan = [&] {
        user.Close();
        stillShown = toolkit.events.back() != "hide frmProgress";
    };
    progress.ShowModal();
    EXPECT_FALSE(stillShown);
}

} // namespace
} // namespace sm
