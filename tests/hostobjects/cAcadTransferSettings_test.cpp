// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cAcadTransferSettings.h"

#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"

namespace sm {
namespace {

class TransferSettings : public SettingsStand {
protected:
    void Put(const std::string& name, const std::string& text) { registry.Put(kUser, kKey, name, text); }
    /// The five stored values in their order.
    std::vector<std::string> Stored()
    {
        std::vector<std::string> texts;
        for (const char* name : {"TransferTextHlinks", "TransferDrawingHlinks", "TransferBlockHlinks",
                                 "TransferVPortHlinks", "TransferAttributes"})
            texts.push_back(registry.Text(kUser, kKey, name));
        return texts;
    }
    static std::vector<VariantBool> Switches(IAcadTransferSettings& settings)
    {
        return {settings.TransferTextHlinks(), settings.TransferDrawingHlinks(), settings.TransferBlockHlinks(),
                settings.TransferVPortHlinks(), settings.TransferAttributes()};
    }
    using Texts = std::vector<std::string>;
    using Bools = std::vector<VariantBool>;
};

TEST_F(TransferSettings, AllReadFalseWithNothingStored)
{
    cAcadTransferSettings settings(surroundings);
    EXPECT_EQ(Switches(settings), Bools({0, 0, 0, 0, 0}));
    EXPECT_EQ(Stored(), Texts(5, "(absent)"));
}

TEST_F(TransferSettings, EachReadsItsOwnValue)
{
    const char* names[] = {"TransferTextHlinks", "TransferDrawingHlinks", "TransferBlockHlinks", "TransferVPortHlinks",
                           "TransferAttributes"};
    for (std::size_t i = 0; i < 5; ++i) {
        Put(names[i], "1");
        cAcadTransferSettings settings(surroundings);
        Bools expected(5, 0);
        expected[i] = -1;
        EXPECT_EQ(Switches(settings), expected) << names[i];
        Put(names[i], "0");
    }
}

TEST_F(TransferSettings, StayInMemoryUntilUpdate)
{
    cAcadTransferSettings settings(surroundings);
    settings.SetTransferTextHlinks(kTrue);
    settings.SetTransferBlockHlinks(kTrue);
    EXPECT_EQ(Stored(), Texts(5, "(absent)"));
    settings.Update();
    EXPECT_EQ(Stored(), Texts({"1", "0", "1", "0", "0"}));
    settings.SetTransferDrawingHlinks(kTrue);
    settings.SetTransferVPortHlinks(kTrue);
    settings.SetTransferAttributes(kTrue);
    settings.SetTransferTextHlinks(kFalse);
    settings.Update();
    EXPECT_EQ(Stored(), Texts({"0", "1", "1", "1", "1"}));
}

TEST_F(TransferSettings, RestoreWritesTheLoadedValuesAndKeepsTheEditedOnes)
{
    Put("TransferBlockHlinks", "1");
    cAcadTransferSettings settings(surroundings);
    settings.SetTransferAttributes(kTrue);
    settings.SetTransferBlockHlinks(kFalse);
    settings.Update();
    EXPECT_EQ(Stored(), Texts({"0", "0", "0", "0", "1"}));
    settings.Update();
    settings.Restore();
    EXPECT_EQ(Stored(), Texts({"0", "0", "1", "0", "0"}));
    EXPECT_EQ(Switches(settings), Bools({0, 0, 0, 0, -1}));
    settings.Update();
    EXPECT_EQ(Stored(), Texts({"0", "0", "0", "0", "1"}));
}

TEST_F(TransferSettings, AStoredFiveLoadsAsTrueAndIsWrittenBackAsOne)
{
    Put("TransferTextHlinks", "5");
    cAcadTransferSettings settings(surroundings);
    EXPECT_EQ(settings.TransferTextHlinks(), -1);
    settings.Restore();
    EXPECT_EQ(Stored()[0], "1");
}

TEST_F(TransferSettings, AWrittenValueIsKeptAsItIsAndStoredAsOneForTrueAlone)
{
    cAcadTransferSettings settings(surroundings);
    settings.SetTransferTextHlinks(1);
    settings.SetTransferDrawingHlinks(kTrue);
    settings.SetTransferAttributes(-2);
    EXPECT_EQ(Switches(settings), Bools({1, -1, 0, 0, -2}));
    settings.Update();
    EXPECT_EQ(Stored(), Texts({"0", "1", "0", "0", "0"}));
}

TEST_F(TransferSettings, SurviveEveryRegistryFault)
{
    const auto operation = [&] {
        cAcadTransferSettings settings(surroundings);
        settings.SetTransferAttributes(kTrue);
        settings.Update();
        settings.Restore();
    };
    SweepFaults(operation, [&] {
        cAcadTransferSettings settings(surroundings);
        settings.SetTransferVPortHlinks(kTrue);
        settings.Update();
        EXPECT_EQ(Stored()[3], "1");
    });
}

} // namespace
} // namespace sm
