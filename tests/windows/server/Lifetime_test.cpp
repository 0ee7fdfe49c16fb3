// SPDX-License-Identifier: GPL-3.0-or-later
#include "../HandleCount.h"
#include "FakeApplication.h"
#include "LoadedComponent.h"

#include <psapi.h>

namespace sm::windows {
namespace {

TEST(Lifetime, MayBeUnloadedWhenNobodyUsesIt)
{
    const Apartment apartment;
    const LoadedComponent component;
    EXPECT_EQ(component.CanUnload(), S_OK);
    {
        const auto factory = component.Factory(__uuidof(::cPlugin));
        EXPECT_EQ(component.CanUnload(), S_FALSE);
    }
    EXPECT_EQ(component.CanUnload(), S_OK);
    {
        const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
        EXPECT_EQ(component.CanUnload(), S_FALSE);
        const ComRef<::IPlugin> second = plugin;
        EXPECT_EQ(component.CanUnload(), S_FALSE);
    }
    EXPECT_EQ(component.CanUnload(), S_OK);
}

TEST(Lifetime, StaysWhileAFactoryIsLocked)
{
    const Apartment apartment;
    const LoadedComponent component;
    component.Factory(__uuidof(::cNativeDoc))->LockServer(TRUE);
    EXPECT_EQ(component.CanUnload(), S_FALSE);
    component.Factory(__uuidof(::cNativeDoc))->LockServer(FALSE);
    EXPECT_EQ(component.CanUnload(), S_OK);
}

TEST(Lifetime, LeavesTheProcessWhenUnloaded)
{
    const Apartment apartment;
    for (int i = 0; i < 3; ++i) {
        {
            const LoadedComponent component;
            BSTR version = nullptr;
            EXPECT_EQ(component.Make<::IPlugin>(__uuidof(::cPlugin))->Version(&version), S_OK);
            EXPECT_STREQ(version, L"0.1.0");
            SysFreeString(version);
        }
        EXPECT_EQ(GetModuleHandleW(L"TwAcadPdf.dll"), nullptr);
    }
}

TEST(Lifetime, RefusesWhatItDoesNotOffer)
{
    const Apartment apartment;
    const LoadedComponent component;
    void* object = &object;
    const auto get = component.Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    EXPECT_EQ(get(IID_IDispatch, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(get(__uuidof(::cPlugin), IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(get(__uuidof(::cPlugin), IID_IClassFactory, nullptr), E_POINTER);
    const auto factory = component.Factory(__uuidof(::cPlugin));
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(::INativeDoc), &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

/// Wine tells the private bytes as those that the page file would have to hold.
std::size_t PrivateBytes()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

void Rounds(const LoadedComponent& component, IDispatch* app, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
        VARIANT_BOOL taken = VARIANT_FALSE;
        ASSERT_EQ(plugin->Initialize(app, &taken), S_OK);
        ASSERT_EQ(taken, VARIANT_TRUE);
    }
}

TEST(Lifetime, TenThousandRoundsLeaveNothingBehind)
{
    const Apartment apartment;
    const LoadedComponent component;
    FakeApplication app;
    Rounds(component, &app, 1000);
    const std::size_t handles = CountHandles(), bytes = PrivateBytes();
    EXPECT_GT(bytes, 0U);
    Rounds(component, &app, 10000);
    const std::size_t bytesAfter = PrivateBytes(), handlesAfter = CountHandles();
    EXPECT_EQ(handlesAfter, handles);
    EXPECT_LT(bytesAfter, bytes + 64 * 1024);
    std::printf("handles %zu and %zu, private bytes %zu and %zu\n", handles, handlesAfter, bytes, bytesAfter);
    EXPECT_EQ(app.References(), 1U);
    EXPECT_EQ(component.CanUnload(), S_OK);
}

/// The suite's readers leave the key of each value that they read open.
TEST(Lifetime, EachSettingThatIsReadKeepsOneKeyOpen)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    LONG value = 0;
    ASSERT_EQ(plugin->put_WhatToPlot(1), S_OK);
    ASSERT_EQ(plugin->get_WhatToPlot(&value), S_OK);
    const std::size_t handles = CountHandles();
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(plugin->get_WhatToPlot(&value), S_OK);
    EXPECT_EQ(CountHandles(), handles + 100);
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(plugin->put_WhatToPlot(1), S_OK);
    EXPECT_EQ(CountHandles(), handles + 100);
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Tarnwick Software");
}

} // namespace
} // namespace sm::windows
