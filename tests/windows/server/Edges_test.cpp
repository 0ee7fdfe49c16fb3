// SPDX-License-Identifier: GPL-3.0-or-later
// What callers of the interfaces themselves meet at the component's edge.
#include "FakeApplication.h"
#include "LoadedComponent.h"
#include "Presser.h"

#include <oleauto.h>

namespace sm::windows {
namespace {

TEST(Edges, EveryPlaceForAResultMayBeMissing)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    EXPECT_EQ(plugin->Initialize(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(plugin->ShowSettings(0, 0, 0, nullptr), E_POINTER);
    EXPECT_EQ(plugin->Version(nullptr), E_POINTER);
    EXPECT_EQ(plugin->get_WhatToPlot(nullptr), E_POINTER);
    EXPECT_EQ(plugin->get_DeletePs(nullptr), E_POINTER);
    EXPECT_EQ(plugin->get_JobOptionsFile(nullptr), E_POINTER);
    EXPECT_EQ(plugin->put_JobOptionsFile(nullptr), S_OK);
    const auto document = component.Make<::INativeDoc>(__uuidof(::cNativeDoc));
    EXPECT_EQ(document->InitOpenDoc(1, nullptr, nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(document->get_CustomPageSetup(nullptr), E_POINTER);
    EXPECT_EQ(document->ExeCmd(nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(document->GetSheetName(0, nullptr), E_POINTER);
    EXPECT_EQ(document->get_Index(nullptr), E_POINTER);
    LONG status = 7;
    EXPECT_EQ(document->AddToPubDoc(nullptr, nullptr, VARIANT_TRUE, 0, nullptr, &status), S_OK);
    EXPECT_EQ(status, -4);
    const auto setup = component.Make<::IAcadPageSetup>(__uuidof(::cAcadPageSetup));
    EXPECT_EQ(setup->Initialize(2, nullptr, nullptr), E_POINTER);
    VARIANT_BOOL taken = VARIANT_FALSE;
    EXPECT_EQ(setup->Initialize(2, nullptr, &taken), S_OK);
    EXPECT_EQ(taken, VARIANT_TRUE);
    EXPECT_EQ(setup->get_PaperWidth(nullptr), E_POINTER);
    EXPECT_EQ(setup->SetPlotStyle(nullptr), S_OK);
}

TEST(Edges, ErrorsComeWithADescription)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto setup = component.Make<::IAcadPageSetup>(__uuidof(::cAcadPageSetup));
    ComRef<ISupportErrorInfo> support;
    ASSERT_EQ(setup->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.Receive())), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(::IAcadPageSetup)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(::IPlugin)), S_FALSE);

    EXPECT_EQ(setup->CopyFrom(nullptr), E_INVALIDARG);
    ComRef<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.Receive()), S_OK);
    BSTR description = nullptr, source = nullptr;
    GUID raisedBy{};
    error->GetDescription(&description);
    error->GetSource(&source);
    error->GetGUID(&raisedBy);
    EXPECT_STREQ(description, L"No page setup was given");
    EXPECT_STREQ(source, L"TarnwickSmPubAcad.cAcadPageSetup");
    EXPECT_EQ(raisedBy, __uuidof(::IAcadPageSetup));
    SysFreeString(description);
    SysFreeString(source);

    FakeApplication app;
    EXPECT_EQ(setup->CopyFrom(&app), E_INVALIDARG);
    EXPECT_EQ(setup->Update(), S_OK);
    EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_FALSE);
}

TEST(Edges, ObjectsHaveOneIdentity)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    ComRef<ISupportErrorInfo> support;
    ComRef<IUnknown> one, other;
    ComRef<::INativeDoc> foreign;
    plugin->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.Receive()));
    plugin->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(one.Receive()));
    support->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(other.Receive()));
    EXPECT_EQ(one.Get(), other.Get());
    EXPECT_EQ(plugin->QueryInterface(__uuidof(::INativeDoc), reinterpret_cast<void**>(foreign.Receive())),
              E_NOINTERFACE);
    EXPECT_EQ(plugin->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(Edges, AnApplicationIsWhatHasAnActiveDocument)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    VARIANT_BOOL taken = VARIANT_TRUE;
    EXPECT_EQ(plugin->Initialize(nullptr, &taken), S_OK);
    EXPECT_EQ(taken, VARIANT_FALSE);
    EXPECT_EQ(plugin->Initialize(plugin.Get(), &taken), S_OK); // itself, which is none
    EXPECT_EQ(taken, VARIANT_FALSE);
    FakeApplication app;
    EXPECT_EQ(plugin->Initialize(&app, &taken), S_OK);
    EXPECT_EQ(taken, VARIANT_TRUE);
    EXPECT_EQ(app.References(), 2U);
}

TEST(Edges, TheUserIsToldOfAHostWithoutADrawing)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    FakeApplication app;
    const auto plugin = component.Make<::IPlugin>(__uuidof(::cPlugin));
    VARIANT_BOOL taken = VARIANT_FALSE;
    ASSERT_EQ(plugin->Initialize(&app, &taken), S_OK);
    EXPECT_EQ(plugin->ConvertToPDF(0), S_OK);
    EXPECT_EQ(user.Pressed(), 1);
}

} // namespace
} // namespace sm::windows
