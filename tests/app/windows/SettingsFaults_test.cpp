// SPDX-License-Identifier: GPL-3.0-or-later
// Every writing call of the operating system under "settings" fails once, and from there onwards: the drawing on the
// disk is the old one or the complete new one.
#include "app/FailingCalls.h"
#include "app/ScreenStand.h"

namespace sm::app {
namespace {

constexpr const char* kOlder = "the backup of an earlier day";

class SettingsFaults : public ScreenStand, public testing::WithParamInterface<bool> {
protected:
    /// The drawing and the settings as they were before all.
    void Again()
    {
        for (const std::string& name : Files("house"))
            std::filesystem::remove(machine.In(name));
        std::filesystem::remove_all(machine.In("home"));
        UseSample("house.dxf");
        machine.MakeFile("house.dxf.bak", kOlder);
        out.str("");
        err.str("");
    }
    void Script(const char* button)
    {
        toolkit.When("frmGUITap", [button](FormDriver& user) {
            user.Click("optSpeed");
            user.Tick("chkFileName", false);
            user.Tick("chkPageSetup", true);
            user.ChooseAt("cmbStampText", 2);
            user.TypeAndLeave("txtStampX", "12.5");
            user.Click(button);
        });
    }
};

TEST_P(SettingsFaults, LeaveTheOldDrawingOrTheNewOne)
{
    Script("btnOK");
    ASSERT_EQ(Settings(), 0);
    const std::string complete = Contents(drawing);
    ASSERT_NE(complete, before);
    const std::string settings = Shell({"list"});
    int kept = 0, written = 0, injected = 1;
    for (int failing = 1; injected != 0; ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing));
        ASSERT_LT(failing, 2000);
        Again();
        Script("btnOK");
        int code = 0;
        {
            const FailingCalls faults(failing, GetParam());
            code = Settings();
            injected = faults.Injected();
        }
        const std::string now = Contents(drawing);
        ASSERT_TRUE(now == before || now == complete) << "neither the old drawing nor the new one";
        (now == before ? kept : written) += 1;
        EXPECT_EQ(code, now == complete && Shell({"list"}) == settings ? 0 : 1) << err.str();
        const std::string backup = Contents(drawing + ".bak");
        ASSERT_TRUE(backup == before || (backup == kOlder && now == before)) << "no backup of either day";
        EXPECT_LE(Files("house").size(), 2U) << "something was left behind";
        EXPECT_EQ(toolkit.ScriptsLeft(), 0U);
        static_cast<void>(desktop.TakeMessages());
    }
    EXPECT_GT(kept, 2);
    EXPECT_GT(written, 1);
}

TEST_P(SettingsFaults, ACleanRunFollows)
{
    Script("btnOK");
    {
        const FailingCalls faults(3, GetParam());
        static_cast<void>(Settings());
    }
    Again();
    Script("btnOK");
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(Shell({"get", "Optimization"}), "1\n");
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, SettingsFaults, testing::Bool(),
                         [](const auto& row) { return std::string(row.param ? "ForGood" : "Once"); });

} // namespace
} // namespace sm::app
