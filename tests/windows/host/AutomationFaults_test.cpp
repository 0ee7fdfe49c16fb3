// SPDX-License-Identifier: GPL-3.0-or-later
// Every host and library call of a conversion fails in turn, in each of the ways in which automation fails.
#include "doubles/FaultSweep.h"
#include "hostobjects/cNativeDoc.h"
#include "plugin/cPlugin.h"
#include "windows/testhost/TestObject.h"

#include <tuple>

namespace sm {
namespace {

using testhost::Failure;

struct Kind {
    const char* name;
    Failure failure;
    bool isTold; ///< the caller sees that the call failed, whatever it asked for
};

class AutomationFaultSweep : public testing::TestWithParam<std::tuple<Kind, FaultySide>> {
protected:
    ~AutomationFaultSweep() override { testhost::ShowFailuresAs(Failure::Exception); }
};

void Prepare(HouseParts& house)
{
    house.PutSetting("PromptForFileName", "0");
    house.PutSetting("WhatToPlot", "1");
    house.PutMarks(house.ground, 2);
}

/// The active sheet alone: where the calls are the same, a sheet more adds nothing but time.
void PrepareOneSheet(HouseParts& house)
{
    house.PutSetting("PromptForFileName", "0");
    house.PutMarks(house.ground, 1);
}

void ExpectItStillWorks(HouseParts& house)
{
    ExpectCallEnded(house);
    house.library.tape.calls.clear();
    (void)house.library.TakeLog();
    cPlugin plugin(house.context);
    ASSERT_EQ(plugin.Initialize(house.host.Application()), kTrue);
    plugin.ConvertToPDF(3);
    const std::vector<std::string> log = house.library.TakeLog();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back(), "PDF FILE SAVED");
    EXPECT_EQ(house.library.tape.CallsOf("PubDoc.SaveToPdf").size(), 1U);
}

const auto kName = [](const auto& info) {
    return std::string(std::get<0>(info.param).name) + "Of" + NameOf(std::get<1>(info.param));
};

TEST_P(AutomationFaultSweep, NothingEscapesAndTheObjectStillWorks)
{
    const auto& [kind, side] = GetParam();
    const bool isTold = kind.isTold;
    testhost::ShowFailuresAs(kind.failure);
    const long before = testhost::TestObject::Alive();
    SweepFaults(side, {Prepare,
                       [](HouseParts& house) {
                           cPlugin plugin(house.context);
                           EXPECT_EQ(plugin.Initialize(house.host.Application()), kTrue);
                           plugin.ConvertToPDF(1);
                       },
                       [isTold](HouseParts& house) {
                           if (isTold)
                               ExpectPlotterFolderKept(house);
                           ExpectItStillWorks(house);
                       }});
    EXPECT_EQ(testhost::TestObject::Alive(), before);
}

INSTANTIATE_TEST_SUITE_P(Conversion, AutomationFaultSweep,
                         testing::Combine(testing::Values(Kind{"Exception", Failure::Exception, true},
                                                          Kind{"Unspecified", Failure::Unspecified, true},
                                                          Kind{"Disconnected", Failure::Disconnected, true},
                                                          Kind{"WrongType", Failure::WrongType, false},
                                                          Kind{"EmptyArray", Failure::EmptyArray, false}),
                                          testing::Values(FaultySide::Host, FaultySide::Library)),
                         kName);

/// What stands for nothing in automation.
constexpr Kind kNothings[] = {{"Empty", Failure::Empty, false},       {"Null", Failure::Null, false},
                              {"NoObject", Failure::NoObject, false}, {"NoUnknown", Failure::NoUnknown, false},
                              {"NoText", Failure::NoText, false},     {"LeftOut", Failure::LeftOut, false}};

class NothingSweep : public testing::TestWithParam<Kind> {
protected:
    NothingSweep() { testhost::ShowFailuresAs(GetParam().failure); }
    ~NothingSweep() override
    {
        testhost::ShowFailuresAs(Failure::Exception);
        EXPECT_EQ(testhost::TestObject::Alive(), m_before);
    }

private:
    const long m_before = testhost::TestObject::Alive();
};

INSTANTIATE_TEST_SUITE_P(, NothingSweep, testing::ValuesIn(kNothings),
                         [](const auto& row) { return std::string(row.param.name); });

/// Of a thousand runs: of the kinds that are read alike, one.
using ConversionNothingSweep = NothingSweep;
INSTANTIATE_TEST_SUITE_P(, ConversionNothingSweep, testing::Values(kNothings[0], kNothings[2], kNothings[3]),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(ConversionNothingSweep, EndsNoProcess)
{
    for (const FaultySide side : {FaultySide::Host, FaultySide::Library})
        SweepFaults(side, {PrepareOneSheet,
                           [](HouseParts& house) {
                               cPlugin plugin(house.context);
                               EXPECT_EQ(plugin.Initialize(house.host.Application()), kTrue);
                               plugin.ConvertToPDF(1);
                           },
                           ExpectItStillWorks});
}

void UseNativeDocument(HouseParts& house)
{
    const auto app = house.host.Application();
    cNativeDoc document(house.context), opened(house.context);
    document.InitGetDocByName(1, app, nullptr, "C:\\Jobs\\Plan.dwg");
    opened.InitOpenDoc(2, app, nullptr, "C:\\Jobs\\Plan.dwg");
    for (std::int32_t i = 0; i < document.SheetCount(); ++i)
        document.GetSheetName(i);
    if (const auto setup = document.CustomPageSetup()) {
        setup->SetPlotType(4);
        setup->Update();
        setup->Restore();
    }
    document.SetPageSetupSelected(document.PageSetupSelected());
    document.SetWindowState(document.WindowState());
    document.ExeCmd("AUDIT", "");
    document.IsActive();
    document.FullName();
    document.CloseDoc(kFalse);
}

TEST_P(NothingSweep, OfANativeDocumentEndsNoProcess)
{
    SweepFaults(FaultySide::Host,
                {PrepareOneSheet, UseNativeDocument, [](HouseParts& house) { (void)house.library.TakeLog(); }});
}

} // namespace
} // namespace sm
