// SPDX-License-Identifier: GPL-3.0-or-later
// Every member of every class with arguments of every type, too few and too many: an automation error or a result,
// never a crash.
#include "FakeApplication.h"
#include "LoadedComponent.h"
#include "Presser.h"
#include "windows/automation/OwnedVariant.h"

#include <vector>

namespace sm::windows {
namespace {

OwnedVariant Typed(VARTYPE type)
{
    OwnedVariant value;
    V_VT(&value.Raw()) = type;
    return value;
}

OwnedVariant Number(double number)
{
    OwnedVariant value = Typed(VT_R8);
    V_R8(&value.Raw()) = number;
    return value;
}

OwnedVariant Text(const wchar_t* text)
{
    OwnedVariant value = Typed(VT_BSTR);
    V_BSTR(&value.Raw()) = text == nullptr ? nullptr : SysAllocString(text);
    return value;
}

OwnedVariant Error(SCODE code)
{
    OwnedVariant value = Typed(VT_ERROR);
    V_ERROR(&value.Raw()) = code;
    return value;
}

OwnedVariant Object(IDispatch* object)
{
    OwnedVariant value = Typed(VT_DISPATCH);
    V_DISPATCH(&value.Raw()) = object;
    if (object != nullptr)
        object->AddRef();
    return value;
}

OwnedVariant EmptyArray()
{
    OwnedVariant value = Typed(VT_ARRAY | VT_VARIANT);
    V_ARRAY(&value.Raw()) = SafeArrayCreateVector(VT_VARIANT, 0, 0);
    return value;
}

std::vector<OwnedVariant> StrangeValues(IDispatch* object)
{
    std::vector<OwnedVariant> values;
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_UNKNOWN, VT_DISPATCH, VT_DATE, VT_CY, VT_BOOL, VT_UI8})
        values.push_back(Typed(type));
    for (const double number : {0.0, -1.0, 32767.0, 2147483647.0, -2147483648.0, 1e300, -0.5})
        values.push_back(Number(number));
    for (const wchar_t* text : {L"", L"abc", L"12", L"AUDIT", static_cast<const wchar_t*>(nullptr)})
        values.push_back(Text(text));
    for (const SCODE code : {DISP_E_PARAMNOTFOUND, E_FAIL})
        values.push_back(Error(code));
    values.push_back(Object(object));
    values.push_back(EmptyArray());
    return values;
}

/// Whether a caller learns from `result` what was wrong.
bool IsAutomationError(HRESULT result)
{
    switch (result) {
    case DISP_E_EXCEPTION:
    case DISP_E_TYPEMISMATCH:
    case DISP_E_OVERFLOW:
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_PARAMNOTFOUND:
    case DISP_E_PARAMNOTOPTIONAL:
    case DISP_E_BADVARTYPE:
    case DISP_E_NONAMEDARGS:
    case E_INVALIDARG:
        return true;
    default:
        return false;
    }
}

struct ClassRow {
    const char* name;
    const GUID& classId;
    int members;
};

const ClassRow kClasses[] = {{"Plugin", __uuidof(::cPlugin), 17},
                             {"NativeDoc", __uuidof(::cNativeDoc), 18},
                             {"PageSetup", __uuidof(::cAcadPageSetup), 42},
                             {"TransferSettings", __uuidof(::cAcadTransferSettings), 12}};

class WrongArguments : public testing::TestWithParam<ClassRow> {
protected:
    /// Calls a member with `arguments`, given last first.
    HRESULT Call(IDispatch& object, DISPID member, WORD kind, std::vector<VARIANT> arguments)
    {
        DISPID put = DISPID_PROPERTYPUT;
        const bool puts = kind == DISPATCH_PROPERTYPUT && !arguments.empty();
        DISPPARAMS parameters{arguments.data(), puts ? &put : nullptr, static_cast<UINT>(arguments.size()),
                              puts ? 1U : 0U};
        OwnedVariant result;
        EXCEPINFO exception{};
        UINT wrong = 0;
        const HRESULT called =
            object.Invoke(member, IID_NULL, 0, kind, &parameters, result.Receive(), &exception, &wrong);
        EXPECT_TRUE(SUCCEEDED(called) || IsAutomationError(called)) << "member " << member << std::hex << called;
        if (called == DISP_E_EXCEPTION) {
            EXPECT_NE(exception.bstrDescription, nullptr) << "member " << member;
        }
        for (const BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(text);
        ++m_calls;
        return called;
    }

    /// All places filled with one value, which is then varied in one place at a time.
    void Vary(IDispatch& object, const FUNCDESC& member, const std::vector<OwnedVariant>& values)
    {
        const auto places = static_cast<std::size_t>(member.cParams - (IsResult(member) ? 1 : 0));
        const auto kind = static_cast<WORD>(member.invkind);
        const VARIANT zero = values.at(8).Raw();
        for (std::size_t place = 0; place < places; ++place) {
            for (const OwnedVariant& value : values) {
                std::vector<VARIANT> arguments(places, zero);
                arguments[place] = value.Raw();
                Call(object, member.memid, kind, arguments);
                VARIANT variable = value.Raw(), reference{};
                V_VT(&reference) = VT_BYREF | VT_VARIANT;
                V_VARIANTREF(&reference) = &variable;
                arguments[place] = reference;
                Call(object, member.memid, kind, arguments);
            }
        }
        for (const OwnedVariant& value : values)
            Call(object, member.memid, kind, std::vector<VARIANT>(places, value.Raw()));
        EXPECT_TRUE(FAILED(Call(object, member.memid, kind, std::vector<VARIANT>(places + 1, zero))));
        if (places > 1) {
            EXPECT_TRUE(FAILED(Call(object, member.memid, kind, {zero})));
        }
    }

    static bool IsResult(const FUNCDESC& member)
    {
        return member.cParams > 0 &&
               (member.lprgelemdescParam[member.cParams - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    }

    int m_calls = 0;
};

INSTANTIATE_TEST_SUITE_P(, WrongArguments, testing::ValuesIn(kClasses),
                         [](const auto& row) { return std::string(row.param.name); });

/// The interface itself, whose members take what automation has already converted.
ComRef<ITypeInfo> Described(IDispatch& object)
{
    ComRef<ITypeInfo> info;
    object.GetTypeInfo(0, 0, info.Receive());
    return info;
}

TEST_P(WrongArguments, GiveAnErrorOrAResult)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user; // some calls tell the user that there is no host
    FakeApplication app;
    const auto object = component.Make<IDispatch>(GetParam().classId);
    ASSERT_TRUE(object);
    const auto info = Described(*object.Get());
    ASSERT_TRUE(info);
    const auto values = StrangeValues(&app);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    int members = 0;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* member = nullptr;
        ASSERT_EQ(info->GetFuncDesc(i, &member), S_OK);
        if (member->memid > 0 && member->memid < 0x1000) {
            ++members;
            Vary(*object.Get(), *member, values);
        }
        info->ReleaseFuncDesc(member);
    }
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(members, GetParam().members);
    std::printf("%d calls of %d members\n", m_calls, members);
}

TEST_P(WrongArguments, OfCallsByNameItselfAreErrors)
{
    const Apartment apartment;
    const LoadedComponent component;
    const auto object = component.Make<IDispatch>(GetParam().classId);
    DISPID id = 0;
    wchar_t unknown[] = L"NoSuchMember";
    wchar_t* names[] = {unknown};
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(object->GetIDsOfNames(IID_IDispatch, names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
    DISPPARAMS none{};
    EXPECT_EQ(object->Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object->Invoke(1, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
    ITypeInfo* info = nullptr;
    EXPECT_EQ(object->GetTypeInfo(1, 0, &info), DISP_E_BADINDEX);
    EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
}

struct ObjectRow {
    const char* name;
    const GUID& classId;
    DISPID member;
    std::size_t place, places; ///< from the last argument
};

class NullOfScripts : public testing::TestWithParam<ObjectRow> {
protected:
    static std::pair<HRESULT, VARTYPE> Call(IDispatch& object, const VARIANT& given)
    {
        const OwnedVariant zero = Number(0);
        std::vector<VARIANT> arguments(GetParam().places, zero.Raw());
        arguments[GetParam().place] = given;
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        OwnedVariant result;
        const HRESULT called = object.Invoke(GetParam().member, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                             result.Receive(), nullptr, nullptr);
        return {called, V_VT(&result.Raw())};
    }
};

INSTANTIATE_TEST_SUITE_P(, NullOfScripts,
                         testing::Values(ObjectRow{"Host", __uuidof(::cPlugin), 1, 0, 1},
                                         ObjectRow{"Document", __uuidof(::cAcadPageSetup), 1, 0, 2},
                                         ObjectRow{"OtherSetup", __uuidof(::cAcadPageSetup), 5, 0, 1}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(NullOfScripts, IsNoObjectWhereOneIsWanted)
{
    const Apartment apartment;
    const LoadedComponent component;
    const Presser user;
    const auto object = component.Make<IDispatch>(GetParam().classId);
    ASSERT_TRUE(object);
    const auto expected = Call(*object.Get(), Object(nullptr).Raw());
    EXPECT_NE(expected.first, DISP_E_TYPEMISMATCH);
    VARIANT null = Typed(VT_NULL).Raw(), reference{};
    EXPECT_EQ(Call(*object.Get(), null), expected);
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &null;
    EXPECT_EQ(Call(*object.Get(), reference), expected);
    EXPECT_EQ(V_VT(&null), VT_NULL);
    EXPECT_EQ(Call(*object.Get(), Text(L"host").Raw()).first, DISP_E_TYPEMISMATCH);
}

} // namespace
} // namespace sm::windows
