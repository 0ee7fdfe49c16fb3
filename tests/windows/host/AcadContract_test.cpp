// SPDX-License-Identifier: GPL-3.0-or-later
// What every CAD host keeps of the automation ports, kept by the one over COM too: the objects lie behind the road in
// force.
#include "doubles/AcadContract.h"

#include "doubles/ScriptedContractHost.h"
#include "windows/host/AutomationHost.h"

namespace sm {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(OverCom, AcadContract, ScriptedContractHost);

TEST(AutomationHost, IsWhatTheContractIsRunOn)
{
    ScriptedContractHost host;
    EXPECT_NE(windows::AutomationOf(host.Application()), nullptr);
    EXPECT_NE(windows::AutomationOf(host.Application()->ActiveDocument()), nullptr);
}

} // namespace
} // namespace sm
