// SPDX-License-Identifier: GPL-3.0-or-later
// One late-bound object: ids asked for once, failures with their texts, busy and vanished hosts.
#include "windows/automation/AutomationObject.h"

#include "ports/HostError.h"
#include "windows/automation/AutomationErrors.h"
#include "windows/testhost/TestObject.h"

#include <deque>
#include <gtest/gtest.h>

namespace sm::testhost {
namespace {

using windows::AutomationObject;
using windows::FromInteger;

/// Answers every member with 42, or with the next result of a list.
class Answering final : public TestObject {
public:
    std::deque<HRESULT> results;
    int asked = 0, called = 0;
    const wchar_t* description = nullptr;

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override
    {
        ++asked;
        *ids = 7;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* exception,
                                     UINT*) override
    {
        ++called;
        HRESULT code = S_OK;
        if (!results.empty()) {
            code = results.front();
            results.pop_front();
        }
        if (code == DISP_E_EXCEPTION && description != nullptr)
            exception->bstrDescription = SysAllocString(description);
        if (code == DISP_E_EXCEPTION)
            exception->scode = E_OUTOFMEMORY;
        if (SUCCEEDED(code) && result != nullptr)
            *result = FromInteger(42).Detach();
        return code;
    }

protected:
    [[nodiscard]] int Find(std::string_view) const override { return 0; }
    bool Run(int, WORD, Invocation&, OwnedVariant&) override { return true; }
};

class LateBound : public testing::Test {
protected:
    ComRef<Answering> answering = ComRef<Answering>::Taken(new Answering);
    AutomationObject object{answering.Get()};

    std::string FailureText()
    {
        try {
            object.Call("Member");
        } catch (const HostError& error) {
            return error.Description();
        }
        return "(none)";
    }
};

TEST_F(LateBound, AMembersIdIsAskedForOnce)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(windows::ToInteger(object.Call("Member").Raw()), 42);
    object.Put("Member", FromInteger(1));
    EXPECT_EQ(answering->asked, 1);
    EXPECT_EQ(answering->called, 4);
    object.Call("Other");
    EXPECT_EQ(answering->asked, 2);
}

TEST_F(LateBound, AnExceptionSpeaksForItself)
{
    answering->results = {DISP_E_EXCEPTION};
    answering->description = L"Ung\u00fcltige Eingabe";
    EXPECT_EQ(FailureText(), "Ung\xC3\xBCltige Eingabe");
}

TEST_F(LateBound, AnExceptionWithoutTextHasThatOfItsCode)
{
    answering->results = {DISP_E_EXCEPTION};
    EXPECT_EQ(FailureText(), windows::TextOfResult(E_OUTOFMEMORY));
}

TEST_F(LateBound, AnyOtherFailureHasTheSystemsText)
{
    for (const HRESULT code : {E_FAIL, DISP_E_MEMBERNOTFOUND, DISP_E_TYPEMISMATCH, DISP_E_BADPARAMCOUNT, E_POINTER}) {
        answering->results = {code};
        EXPECT_EQ(FailureText(), windows::TextOfResult(code));
    }
    EXPECT_EQ(FailureText(), "(none)");
}

TEST_F(LateBound, ABusyHostIsAskedAgain)
{
    answering->results = {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER};
    EXPECT_EQ(windows::ToInteger(object.Call("Member").Raw()), 42);
    EXPECT_EQ(answering->called, 3);
}

TEST_F(LateBound, AfterOneObjectIsGoneTheOthersAreNotAsked)
{
    const auto other = ComRef<Answering>::Taken(new Answering);
    AutomationObject part(other.Get(), object.Link(), false);
    part.Call("Member");
    answering->results = {RPC_E_DISCONNECTED};
    EXPECT_EQ(FailureText(), windows::TextOfResult(RPC_E_DISCONNECTED));
    EXPECT_THROW(part.Call("Member"), HostError);
    EXPECT_THROW(part.Has("Member"), HostError);
    EXPECT_EQ(other->called, 1);
}

TEST_F(LateBound, ARootThatAnswersMendsTheLink)
{
    const auto other = ComRef<Answering>::Taken(new Answering);
    AutomationObject part(other.Get(), object.Link(), false);
    other->results = {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)};
    EXPECT_THROW(part.Call("Member"), HostError);
    EXPECT_THROW(part.Call("Member"), HostError);
    EXPECT_EQ(other->called, 1);
    object.Call("Member");
    EXPECT_EQ(windows::ToInteger(part.Call("Member").Raw()), 42);
}

TEST_F(LateBound, ReferencesAreGivenBack)
{
    const long before = TestObject::Alive();
    {
        const auto one = ComRef<Answering>::Taken(new Answering);
        AutomationObject held(one.Get());
        const AutomationObject copy = held;
        held.Call("Member");
        EXPECT_EQ(TestObject::Alive(), before + 1);
    }
    EXPECT_EQ(TestObject::Alive(), before);
    EXPECT_THROW(AutomationObject(nullptr), HostError);
}

} // namespace
} // namespace sm::testhost
