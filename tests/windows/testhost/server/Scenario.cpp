// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/server/Scenario.h"

#include "windows/testhost/TestHost.h"
#include "windows/testhost/TestObject.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <windows.h>

namespace sm::testhost {
namespace {

FaultPlan hostFaults;
long callsToLive = 0;

void CountDown()
{
    if (InterlockedDecrement(&callsToLive) == 0)
        TerminateProcess(GetCurrentProcess(), 3);
}

/// The first word, and the rest after the blank.
std::pair<std::string, std::string> Split(const std::string& text)
{
    const auto blank = text.find(' ');
    return blank == std::string::npos ? std::pair(text, std::string())
                                      : std::pair(text.substr(0, blank), text.substr(blank + 1));
}

void SetDrawing(HouseParts& house, const std::string& path)
{
    house.drawing->FullName = path;
    house.drawing->Name = path.substr(path.find_last_of('\\') + 1);
}

void AddPc3Folder(HouseParts& house, const std::string& folder)
{
    auto& devices = house.host.facts.DevicesIn;
    devices[folder] = devices[kPc3Folder];
}

void AddHyperlink(HouseParts& house, const std::string& rest)
{
    const auto [name, url] = Split(rest);
    EntityFacts entity;
    entity.LowerLeft = {10, 20, 0};
    entity.UpperRight = {110, 70, 0};
    entity.Hyperlinks = {{url, ""}};
    if (const auto layout = house.drawing->FindLayout(name))
        layout->Block.Entities.push_back(entity);
}

void PlanFault(HouseParts& house, FaultPlan::Mode mode, const std::string& number)
{
    hostFaults = {mode, std::atoi(number.c_str())};
    house.host.tape.faults = &hostFaults;
}

void ShowAs(const std::string& kind)
{
    static const std::map<std::string, Failure> kKinds = {{"exception", Failure::Exception},
                                                          {"unspecified", Failure::Unspecified},
                                                          {"disconnected", Failure::Disconnected},
                                                          {"wrong-type", Failure::WrongType},
                                                          {"empty-array", Failure::EmptyArray}};
    if (const auto found = kKinds.find(kind); found != kKinds.end())
        ShowFailuresAs(found->second);
}

void Obey(HouseParts& house, const std::string& verb, const std::string& rest)
{
    if (verb == "drawing")
        SetDrawing(house, rest);
    else if (verb == "drivers")
        house.host.facts.DriversPath = rest;
    else if (verb == "plotters")
        house.host.facts.PrinterConfigPath = rest;
    else if (verb == "pc3")
        AddPc3Folder(house, rest);
    else if (verb == "plots")
        WhatIsPlotted() = rest;
    else if (verb == "hyperlink")
        AddHyperlink(house, rest);
    else if (verb == "fail")
        house.host.tape.FailCall(Split(rest).first, Split(rest).second);
    else if (verb == "fail-library")
        house.library.tape.FailCall(Split(rest).first, Split(rest).second);
    else if (verb == "fault-at")
        PlanFault(house, FaultPlan::Mode::Once, rest);
    else if (verb == "fault-from")
        PlanFault(house, FaultPlan::Mode::Onwards, rest);
    else if (verb == "shown-as")
        ShowAs(rest);
    else if (verb == "die-at" && (callsToLive = std::atol(rest.c_str())) > 0)
        BeforeEveryCall(CountDown);
}

std::unique_ptr<HouseParts> Made()
{
    auto house = std::make_unique<HouseParts>();
    house->host.tape.keepsCalls = false;
    house->library.tape.keepsCalls = false;
    const char* const path = std::getenv("SM_TEST_SCENARIO");
    std::ifstream file(path == nullptr ? "" : path);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const auto [verb, rest] = Split(line);
        Obey(*house, verb, rest);
    }
    return house;
}

} // namespace

HouseParts& House()
{
    static const std::unique_ptr<HouseParts> house = Made();
    return *house;
}

} // namespace sm::testhost
