// SPDX-License-Identifier: GPL-3.0-or-later
// What callers do while a call is under way, from other apartments, and with objects of their own.
#include "FakeApplication.h"
#include "LoadedComponent.h"
#include "Presser.h"
#include "ScriptedObject.h"
#include "SystemProgram.h"

#include <functional>
#include <optional>
#include <thread>
#include <tuple>
#include <utility>

namespace sm::windows {
namespace {

/// What a front end has: objects that know a host, whose drawing is gone afterwards.
struct FrontEnd {
    explicit FrontEnd(const LoadedComponent& component)
        : plugin(component.Make<::IPlugin>(__uuidof(::cPlugin))),
          document(component.Make<::INativeDoc>(__uuidof(::cNativeDoc)))
    {
        app.With(L"ActiveDocument", [this](const auto&, VARIANT& result) {
            ++asked;
            if (whenAsked)
                std::exchange(whenAsked, {})();
            V_VT(&result) = VT_DISPATCH;
            V_DISPATCH(&result) = ComRef<IDispatch>(isOpen ? &drawing : nullptr).Detach();
        });
        drawing.WithObject(L"Application", &app).WithObject(L"ActiveLayout", &layout);
        VARIANT_BOOL taken = VARIANT_FALSE;
        EXPECT_EQ(plugin->Initialize(&app, &taken), S_OK);
        EXPECT_EQ(taken, VARIANT_TRUE);
        EXPECT_EQ(document->InitGetDoc(1, &app, nullptr, &drawing, &taken), S_OK);
        isOpen = false;
        asked = 0;
    }
    ScriptedObject app, drawing, layout;
    bool isOpen = true;
    std::function<void()> whenAsked; ///< once
    int asked = 0;                   ///< how often the host was asked for its drawing
    ComRef<::IPlugin> plugin;
    ComRef<::INativeDoc> document;
};

struct RunRow {
    const char* name;
    HRESULT (*run)(FrontEnd&, LONG& result);
    LONG turnedAway; ///< the result
};

const RunRow kRuns[] = {{"ConvertToPDF",
                         [](FrontEnd& user, LONG& result) {
                             result = 0;
                             return user.plugin->ConvertToPDF(0);
                         },
                         0},
                        {"ShowSettings",
                         [](FrontEnd& user, LONG& result) {
                             VARIANT_BOOL shown = VARIANT_TRUE;
                             const HRESULT called = user.plugin->ShowSettings(0, 0, 0, &shown);
                             result = shown;
                             return called;
                         },
                         VARIANT_FALSE},
                        {"AddToPubDoc",
                         [](FrontEnd& user, LONG& result) {
                             return user.document->AddToPubDoc(nullptr, nullptr, VARIANT_FALSE, 0, nullptr, &result);
                         },
                         -4}};

class NestedCall : public testing::TestWithParam<std::tuple<RunRow, RunRow, bool>> {};

INSTANTIATE_TEST_SUITE_P(, NestedCall,
                         testing::Combine(testing::ValuesIn(kRuns), testing::ValuesIn(kRuns), testing::Bool()),
                         [](const auto& row) {
                             return std::string(std::get<1>(row.param).name) + "Within" + std::get<0>(row.param).name +
                                    (std::get<2>(row.param) ? "OfTheSameObject" : "OfAnotherObject");
                         });

TEST_P(NestedCall, IsTurnedAwayWithoutAnError)
{
    const RunRow &outer = std::get<0>(GetParam()), &inner = std::get<1>(GetParam());
    const bool sameObject = std::get<2>(GetParam());
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    FrontEnd first(component), second(component);
    FrontEnd& calling = sameObject ? first : second;
    HRESULT called = E_FAIL;
    LONG result = 4711, ignored = 0;
    first.whenAsked = [&] { called = inner.run(calling, result); };
    EXPECT_EQ(outer.run(first, ignored), S_OK);
    EXPECT_EQ(called, S_OK);
    EXPECT_EQ(result, inner.turnedAway);
    EXPECT_EQ(first.asked + second.asked, 1);
    EXPECT_EQ(user.Pressed(), 1); // the first one's message that there is no drawing
    EXPECT_EQ(inner.run(calling, result), S_OK);
    EXPECT_EQ(first.asked + second.asked, 2) << "once the first has ended";
}

/// What a dialog's thread does while it is shown: asks for the same dialog once more, and closes it.
struct ShownDialog {
    ::IAcadPageSetup* setup = nullptr;
    HRESULT again = E_FAIL;
    int asked = 0;       ///< how often this came by
    int askedWithin = 0; ///< of these, by the end of the second call: more than one, were the dialog shown again
};
ShownDialog* shownDialog = nullptr;

void CALLBACK AskAgain(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND window = FindWindowW(nullptr, L"Global Page Setup");
    if (window == nullptr || IsWindowVisible(window) == FALSE)
        return;
    if (shownDialog->asked++ == 0) {
        shownDialog->again = shownDialog->setup->ShowPageSetup();
        shownDialog->askedWithin = shownDialog->asked;
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
}

TEST(Callers, AreNotShownAnObjectsDialogTwice)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto setup = component.Make<::IAcadPageSetup>(__uuidof(::cAcadPageSetup));
    VARIANT_BOOL taken = VARIANT_FALSE;
    ASSERT_EQ(setup->Initialize(2, nullptr, &taken), S_OK);
    for (int times = 0; times < 2; ++times) {
        ShownDialog shown{setup.Get()};
        shownDialog = &shown;
        const UINT_PTR timer = SetTimer(nullptr, 0, 20, AskAgain);
        EXPECT_EQ(setup->ShowPageSetup(), S_OK);
        KillTimer(nullptr, timer);
        EXPECT_EQ(shown.again, S_OK);
        EXPECT_EQ(shown.askedWithin, 1);
    }
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
