// SPDX-License-Identifier: GPL-3.0-or-later
// What callers do while a call is under way, from other apartments, and with objects of their own.
#include "FakeApplication.h"
#include "LoadedComponent.h"
#include "Presser.h"
#include "ScriptedObject.h"
#include "SystemProgram.h"

#include <optional>
#include <thread>

namespace sm::windows {
namespace {

TEST(Callers, MayNotBeginASecondConversionWithinTheFirst)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    HRESULT second = S_OK;
    ScriptedObject app;
    app.With(L"ActiveDocument", [&](const auto&, VARIANT& result) {
        second = plugin->ConvertToPDF(0);
        V_VT(&result) = VT_DISPATCH;
        V_DISPATCH(&result) = nullptr;
    });
    VARIANT_BOOL taken = VARIANT_FALSE;
    ASSERT_EQ(plugin->Initialize(&app, &taken), S_OK);
    EXPECT_EQ(plugin->ConvertToPDF(0), S_OK);
    EXPECT_EQ(second, RPC_E_CALL_REJECTED);
    EXPECT_EQ(user.Pressed(), 1);
}

TEST(Callers, MayLetGoOfTheObjectWithinACall)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    ScriptedObject app;
    app.With(L"ActiveDocument", [&](const auto&, VARIANT& result) {
        plugin.Reset();
        V_VT(&result) = VT_DISPATCH;
        V_DISPATCH(&result) = nullptr;
    });
    VARIANT_BOOL taken = VARIANT_FALSE;
    ASSERT_EQ(plugin->Initialize(&app, &taken), S_OK);
    EXPECT_EQ(plugin.Get()->ConvertToPDF(0), S_OK);
    EXPECT_FALSE(plugin);
    EXPECT_EQ(component.CanUnload(), S_OK);
    EXPECT_EQ(app.References(), 1U);
}

TEST(Callers, HearOfTheDocumentThatIsReleased)
{
    const Apartment apartment;
    const LoadedComponent component;
    std::optional<LONG> released;
    ScriptedObject list, owner, document;
    FakeApplication app;
    list.With(L"ReleaseEntry", [&](const std::vector<VARIANT>& arguments, VARIANT&) {
        released = arguments.size() == 1 ? V_I4(&arguments[0]) : -1;
    });
    owner.WithObject(L"Documents", &list);
    {
        const auto native = component.Make<::INativeDoc>(__uuidof(::cNativeDoc));
        VARIANT_BOOL taken = VARIANT_TRUE;
        ASSERT_EQ(native->InitGetDoc(7, &app, &owner, &document, &taken), S_OK);
        EXPECT_EQ(taken, VARIANT_FALSE); // the host has no drawing
        EXPECT_EQ(native->ReleaseDoc(), S_OK);
        EXPECT_EQ(released, 7);
        released.reset();
        EXPECT_EQ(native->CloseDoc(VARIANT_FALSE), S_OK);
        EXPECT_EQ(released, 7);
    }
    for (const ULONG references : {list.References(), owner.References(), document.References(), app.References()})
        EXPECT_EQ(references, 1U);
}

/// Serves calls from other apartments until `event` is set.
void ServeUntil(HANDLE event)
{
    DWORD which = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &event, &which);
}

TEST(Callers, OfAnotherApartmentAreMarshalledByTheTypeLibrary)
{
    ASSERT_EQ(RunProgram(std::string("regsvr32 /s ") + SM_COMPONENT).exitCode, 0);
    {
        const Apartment apartment;
        const LoadedComponent component;
        const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
        IStream* stream = nullptr;
        ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(::IPlugin), plugin.Get(), &stream), S_OK);
        const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        HRESULT taken = E_FAIL, called = E_FAIL;
        std::wstring text;
        ::IPlugin* direct = plugin.Get();
        std::jthread other([&] {
            const Apartment own;
            ComRef<::IPlugin> proxy;
            taken =
                CoGetInterfaceAndReleaseStream(stream, __uuidof(::IPlugin), reinterpret_cast<void**>(proxy.Receive()));
            if (proxy) {
                EXPECT_NE(proxy.Get(), direct);
                BSTR version = nullptr;
                called = proxy->Version(&version);
                text = version == nullptr ? L"" : version;
                SysFreeString(version);
            }
            proxy.Reset();
            SetEvent(done);
        });
        ServeUntil(done);
        other.join();
        CloseHandle(done);
        EXPECT_EQ(taken, S_OK);
        EXPECT_EQ(called, S_OK);
        EXPECT_EQ(text, L"0.1.0");
    }
    EXPECT_EQ(RunProgram(std::string("regsvr32 /s /u ") + SM_COMPONENT).exitCode, 0);
}

} // namespace
} // namespace sm::windows
