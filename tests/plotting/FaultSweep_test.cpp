// SPDX-License-Identifier: GPL-3.0-or-later
// Every host, library, registry and file call of the plot of one layout is made to fail.
#include "doubles/FaultSweep.h"
#include "plotting/mdlAcadPrinting.h"

#include <tuple>

namespace sm {
namespace {

struct Case {
    const char* name;
    VariantBool silent;
    std::int32_t source;
};

class PlotFaultSweep : public testing::TestWithParam<std::tuple<Case, FaultySide>> {};

std::int32_t PlotGround(HouseParts& house, const Case& facts, IPubDoc& pubDoc)
{
    return PlotLayoutToPubDoc(house.context, pubDoc, "Ground", facts.silent, facts.source, 1200, "Proof");
}

TEST_P(PlotFaultSweep, NothingEscapesAndThePlotterFolderIsKept)
{
    const Case facts = std::get<0>(GetParam());
    std::shared_ptr<IPubDoc> pubDoc;
    SweepFaults(std::get<1>(GetParam()), {[&](HouseParts& house) {
                                              house.PutMarks(house.ground, 1);
                                              house.BeginCall();
                                              pubDoc = house.library.CreatePubDoc();
                                          },
                                          [&](HouseParts& house) {
                                              const std::int32_t status = PlotGround(house, facts, *pubDoc);
                                              EXPECT_GE(status, -13);
                                              EXPECT_LE(status, 1);
                                          },
                                          [&](HouseParts& house) {
                                              ExpectPlotterFolderKept(house);
                                              (void)house.library.TakeLog();
                                              EXPECT_EQ(PlotGround(house, facts, *pubDoc), 0) << "in a clean run";
                                              EXPECT_EQ(house.PendingFolder(), "");
                                              pubDoc = nullptr;
                                          }});
}

const auto kName = [](const auto& info) {
    return std::string(std::get<0>(info.param).name) + NameOf(std::get<1>(info.param));
};

INSTANTIATE_TEST_SUITE_P(Every, PlotFaultSweep,
                         testing::Combine(testing::Values(Case{"Native", kFalse, 0}, Case{"GlobalInSilence", kTrue, 2}),
                                          testing::Values(FaultySide::Everything, FaultySide::Host, FaultySide::Library,
                                                          FaultySide::Registry, FaultySide::Files)),
                         kName);

} // namespace
} // namespace sm
