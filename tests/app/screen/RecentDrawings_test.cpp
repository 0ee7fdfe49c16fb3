// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings that were opened lately, kept in the settings store.
#include "screen/RecentDrawings.h"

#include "app/Fixtures.h"
#include "screen/StoredMemory.h"

#include <fstream>
#include <gmock/gmock.h>

namespace sm::app {
namespace {

using testing::ElementsAre;

class Recents : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<beside::IWindowMemory> Memory() const
    {
        return CreateWindowMemory(OpenSettings(machine.Here(), [](const std::string& text) { FAIL() << text; }));
    }
    std::string Make(const std::string& name)
    {
        std::ofstream(machine.In(name)) << "0\nEOF\n";
        return machine.In(name);
    }
    Machine machine;
};

TEST_F(Recents, TheLatestComesFirstAndOnce)
{
    const std::string a = Make("a.dxf"), b = Make("b.dxf");
    for (const std::string& path : {a, b, a})
        RememberDrawing(Memory().get(), path); // each run has a store of its own
    EXPECT_THAT(RecentDrawings(Memory().get()), ElementsAre(a, b));
}

TEST_F(Recents, TenAtMostAndNoneThatIsGone)
{
    const auto memory = Memory();
    std::vector<std::string> paths;
    for (int i = 0; i < 12; ++i) {
        paths.push_back(Make("plan" + std::to_string(i) + ".dxf"));
        RememberDrawing(memory.get(), paths.back());
    }
    std::filesystem::remove(paths[5]);
    EXPECT_THAT(RecentDrawings(memory.get()), ElementsAre(paths[11], paths[10], paths[9], paths[8], paths[7], paths[6],
                                                          paths[4], paths[3], paths[2]));
}

TEST_F(Recents, PathsAreWholeAndTheOwnDrawingIsNoOther)
{
    const auto memory = Memory();
    const std::string a = Make("a.dxf"), b = Make("b.dxf");
    RememberDrawing(memory.get(), a);
    RememberDrawing(memory.get(), machine.In("sub/../b.dxf"));
    RememberDrawing(memory.get(), "/no/such\nname.dxf");
    OtherDrawings others(memory.get(), a, false);
    EXPECT_THAT(others.Recent(), ElementsAre(b));
    EXPECT_THAT(RecentDrawings(nullptr), ElementsAre());
    RememberDrawing(nullptr, a);
}

} // namespace
} // namespace sm::app
