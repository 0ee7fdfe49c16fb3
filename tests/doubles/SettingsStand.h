// SPDX-License-Identifier: GPL-3.0-or-later
// A fixture for the rooms below the plug-in object: memory registry and files, fixed system, scripted host, mocked
// windows, and a context on all of it.
#pragma once

#include "doubles/FixedSystem.h"
#include "doubles/MemoryFileSystem.h"
#include "doubles/MemoryRegistry.h"
#include "doubles/RegistryWrappers.h"
#include "doubles/ScriptedHost.h"
#include "plugin/CallContext.h"
#include "ports/IDesktop.h"
#include "ports/IRunObserver.h"
#include "ports/IWindows.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sm {

class MockDesktop : public IDesktop {
public:
    MOCK_METHOD(MessageAnswer, ShowMessage, (const Message&), (override));
    MOCK_METHOD(void, Beep, (), (override));
    MOCK_METHOD(std::optional<std::string>, AskOpenFile, (const FileDialog&), (override));
    MOCK_METHOD(std::optional<std::string>, AskSaveFile, (const FileDialog&), (override));
    MOCK_METHOD(std::optional<std::int32_t>, AskColor, (std::int32_t), (override));
    MOCK_METHOD(bool, OpenDocument, (const std::string&), (override));
    MOCK_METHOD(bool, ShowHelp, (const std::string&, std::int32_t), (override));
};

class MockWindows : public IWindows {
public:
    using Scan = std::function<bool(const std::function<void(double)>&)>;
    MOCK_METHOD(std::int32_t, ShowConversionSettings, (), (override));
    MOCK_METHOD(bool, ShowPageSetup, (IAcadPageSetup&, const std::string&), (override));
    MOCK_METHOD(std::optional<std::int32_t>, PickPlotStyle, (const std::vector<std::string>&), (override));
    MOCK_METHOD(std::optional<std::int32_t>, PickJobOptions, (const std::vector<std::string>&), (override));
    MOCK_METHOD(std::optional<std::int32_t>, PickPageSize, (const std::vector<std::string>&), (override));
    MOCK_METHOD(bool, RunProgress, (const Scan&), (override));
};

class MockLibrary : public IPublishingLibrary {
public:
    MOCK_METHOD(std::shared_ptr<IPubDoc>, CreatePubDoc, (), (override));
    MOCK_METHOD(std::shared_ptr<IConversionLog>, CreateConversionLog, (), (override));
};

/// Keeps "routine: description" of every failure that was carried past.
class CarriedPastList : public IRunObserver {
public:
    std::vector<std::string> carriedPast;
    void Stage(const std::string&) noexcept override {}
    void SheetBegins(const std::string&, std::int32_t, std::int32_t) noexcept override {}
    void SheetEnds(const std::string&, std::int32_t, std::int32_t) noexcept override {}
    void Saved(const std::string&, std::int32_t, const std::string&) noexcept override {}
    void AnnotationsLost(const std::string&) noexcept override {}
    void CarriedPast(const std::string& routine, const std::string& description) noexcept override
    {
        carriedPast.push_back(routine + ": " + description);
    }
};

class SettingsStand : public testing::Test {
protected:
    MemoryRegistry registry;
    FailingRegistry failingRegistry{registry}; ///< the registry that the context sees
    MemoryFileSystem files;
    testing::StrictMock<MockDesktop> desktop;
    testing::StrictMock<MockWindows> windows;
    testing::StrictMock<MockLibrary> library;
    FixedLocale locale;
    FixedClock clock;
    FixedComponent component;
    CarriedPastList observer;
    Surroundings surroundings{failingRegistry, files, desktop, windows, library, locale, clock, component, observer};
    CallContext context{surroundings, nullptr, nullptr, nullptr};
    ScriptedHost host;

    /// Runs `operation` with its call 1 to host and registry failing, then 2 and so on until none fails, once and
    /// onwards. `after` runs with nothing failing any more.
    void SweepFaults(const std::function<void()>& operation, const std::function<void()>& after)
    {
        for (const auto mode : {FaultPlan::Mode::Once, FaultPlan::Mode::Onwards}) {
            int injected = 0;
            for (int call = 1; call == 1 || injected > 0; ++call) {
                SCOPED_TRACE((mode == FaultPlan::Mode::Once ? "once at call " : "onwards from call ") +
                             std::to_string(call));
                failingRegistry.faults = {mode, call};
                host.tape.faults = &failingRegistry.faults; // one count over both
                EXPECT_NO_THROW(operation());
                injected = failingRegistry.faults.injected;
                failingRegistry.faults = {};
                after();
                EXPECT_TRUE(call > 1 || injected > 0) << "no call was made to fail";
            }
        }
    }
};

} // namespace sm
