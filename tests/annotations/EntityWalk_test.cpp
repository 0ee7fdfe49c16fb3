// SPDX-License-Identifier: GPL-3.0-or-later
// Hyperlinks and block attributes of a sheet.
#include "annotations/EntityWalk.h"
#include "annotations/MarkHouse.h"

namespace sm {
namespace {

class EntityWalkTest : public MarkHouse {
protected:
    bool Walk(const TransferFlags& transfer = kEverySwitch)
    {
        MarkState state = State();
        state.transfer = transfer;
        EntityWalk walk(state);
        const bool finished = walk.WalkEntities(*host.Layout(ground)->Block(), 0, 0);
        error = walk.Error();
        attributes = state.attributeList;
        return finished;
    }
    void Define(const std::string& name, const std::vector<EntityFacts>& entities)
    {
        drawing->Blocks.push_back({name, entities});
    }
    std::string error;
    std::vector<std::pair<std::string, std::string>> attributes;
};

TEST_F(EntityWalkTest, TransfersTheFirstHyperlinkOnly)
{
    ground->Block.Entities = {Linked("AcDbLine", {{"https://one.example", ""}, {"two", ""}, {"three", ""}})};
    EXPECT_TRUE(Walk());
    EXPECT_EQ(Log(), Lines{"  'https://one.example', [10 20 30 40]"});
    EXPECT_EQ(Marks(), Lines{"PubDoc.AddLinkMark 0 | 10 | 20 | 30 | 40 | https://one.example"});
}

TEST_F(EntityWalkTest, EachSwitchGovernsItsKinds)
{
    const struct {
        const char* objectName;
        TransferFlags only;
    } rows[] = {
        {"AcDbText", {kTrue, kFalse, kFalse, kFalse, kFalse}},
        {"AcDbMText", {kTrue, kFalse, kFalse, kFalse, kFalse}},
        {"AcDbLine", {kFalse, kTrue, kFalse, kFalse, kFalse}},
        {"AcDbPolyline", {kFalse, kTrue, kFalse, kFalse, kFalse}},
        {"AcDbBlockReference", {kFalse, kFalse, kTrue, kFalse, kFalse}},
        {"AcDbViewport", {kFalse, kFalse, kFalse, kTrue, kFalse}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.objectName);
        ground->Block.Entities = {Linked(row.objectName, {{"u", ""}})};
        EXPECT_TRUE(Walk(row.only));
        EXPECT_EQ(Log(), Lines{"  'u', [10 20 30 40]"});
        TransferFlags others{static_cast<VariantBool>(~row.only.TransferTextHlinks),
                             static_cast<VariantBool>(~row.only.TransferDrawingHlinks),
                             static_cast<VariantBool>(~row.only.TransferBlockHlinks),
                             static_cast<VariantBool>(~row.only.TransferVPortHlinks), kTrue};
        EXPECT_TRUE(Walk(others));
        EXPECT_EQ(Log(), Lines{});
    }
}

TEST_F(EntityWalkTest, WalksNothingWithAllSwitchesOff)
{
    ground->Block.Entities = {Linked("AcDbLine", {{"u", ""}})};
    const auto block = host.Layout(ground)->Block();
    host.tape.calls.clear();
    MarkState state = State();
    state.transfer = {};
    EntityWalk walk(state);
    EXPECT_TRUE(walk.WalkEntities(*block, 0, 0));
    EXPECT_EQ(host.tape.calls, Lines{});
}

TEST_F(EntityWalkTest, LinkRectanglesAreNotRounded)
{
    ground->Block.Entities = {{"AcDbLine", {0.25, -0.0, 0}, {1e16, 2.125, 0}, {{"u", ""}}, {}}};
    EXPECT_TRUE(Walk());
    EXPECT_EQ(Log(), Lines{"  'u', [0.25 0 1E+16 2.125]"});
}

TEST_F(EntityWalkTest, WritesNumbersInTheLocalesForm)
{
    locale.decimalSeparator = ',';
    ground->Block.Entities = {{"AcDbLine", {0.25, 1, 0}, {2.5, 3, 0}, {{"u", ""}}, {}}};
    EXPECT_TRUE(Walk());
    EXPECT_EQ(Log(), Lines{"  'u', [0,25 1 2,5 3]"});
}

TEST_F(EntityWalkTest, NamesAttributesByBlockReferenceAndTag)
{
    const BlockReferenceFacts title{"TITLE", {}, {{"DWG-NO", "A-101"}}, {{"FIRM", "Tarnwick"}}};
    ground->Block.Entities = {Reference(title), Reference(title), Reference({"A B", {}, {{"REV.", "C"}}, {}})};
    Define("TITLE", {});
    Define("A B", {});
    EXPECT_TRUE(Walk());
    EXPECT_EQ(Marks(), (Lines{"PubDoc.AddPropertyMark 0 | TITLE_1/DWG-NO | A-101",
                              "PubDoc.AddPropertyMark 0 | TITLE_1/FIRM | Tarnwick",
                              "PubDoc.AddPropertyMark 0 | TITLE_2/DWG-NO | A-101",
                              "PubDoc.AddPropertyMark 0 | TITLE_2/FIRM | Tarnwick",
                              "PubDoc.AddPropertyMark 0 | A-B_1/REV | C"}));
    ASSERT_EQ(attributes.size(), 5u);
    EXPECT_EQ(attributes[4], (std::pair<std::string, std::string>{"A-B_1/REV", "C"}));
}

TEST_F(EntityWalkTest, AttributesNeedTheirSwitch)
{
    ground->Block.Entities = {Reference({"TITLE", {}, {{"DWG-NO", "A-101"}}, {}})};
    Define("TITLE", {});
    EXPECT_TRUE(Walk({kTrue, kTrue, kTrue, kTrue, kFalse}));
    EXPECT_EQ(Marks(), Lines{});
}

TEST_F(EntityWalkTest, NestedEntitiesStandRelativeToTheInnermostInsertionPoint)
{
    Define("OUTER", {Linked("AcDbLine", {{"outer", ""}}), Reference({"INNER", {1000, 2000, 0}, {}, {}})});
    Define("INNER", {Linked("AcDbLine", {{"inner", ""}})});
    ground->Block.Entities = {Reference({"OUTER", {100, 200, 0}, {}, {}}), Linked("AcDbLine", {{"top", ""}})};
    EXPECT_TRUE(Walk());
    EXPECT_EQ(Log(),
              (Lines{"  'outer', [110 220 130 240]", "  'inner', [1010 2020 1030 2040]", "  'top', [10 20 30 40]"}));
}

TEST_F(EntityWalkTest, ABlockThatContainsItselfEndsTheWalk)
{
    Define("A", {Reference({"B", {}, {}, {}})});
    Define("B", {Reference({"A", {}, {}, {}})});
    ground->Block.Entities = {Reference({"A", {}, {}, {}})};
    EXPECT_FALSE(Walk());
    EXPECT_EQ(error, "Block 'A' contains itself");
}

TEST_F(EntityWalkTest, AFailingEntityEndsTheWalkAndKeepsWhatWasHandedOver)
{
    ground->Block.Entities = {Linked("AcDbLine", {{"first", ""}}), Linked("AcDbLine", {{"second", ""}})};
    host.tape.FailCall("Entity.GetBoundingBox", "Null extents", -1, 1);
    EXPECT_FALSE(Walk());
    EXPECT_EQ(error, "Null extents");
    EXPECT_EQ(Log(), Lines{"  'first', [10 20 30 40]"});
}

TEST_F(EntityWalkTest, TellsHowFarItIs)
{
    ground->Block.Entities.assign(4, Linked("AcDbLine", {}));
    Define("A", {Linked("AcDbLine", {})});
    ground->Block.Entities[1] = Reference({"A", {}, {}, {}});
    std::vector<double> steps;
    MarkState state = State();
    EntityWalk walk(state, [&](double done) { steps.push_back(done); });
    EXPECT_TRUE(walk.WalkEntities(*host.Layout(ground)->Block(), 0, 0));
    EXPECT_EQ(steps, (std::vector<double>{25, 50, 75, 100}));
}

} // namespace
} // namespace sm
