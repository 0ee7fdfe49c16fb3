// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/TestObject.h"

#include "windows/automation/Arrays.h"
#include "windows/automation/WideText.h"

#include <algorithm>
#include <atomic>
#include <cctype>

namespace sm::testhost {
namespace {

constexpr GUID kBehindId = {0x6b0b3c52, 0x5a6e, 0x4f0f, {0x9d, 0x1c, 0x21, 0x77, 0x4e, 0x5a, 0x30, 0x11}};

std::atomic<Failure> shownAs = Failure::Exception;
std::atomic<long> objectsAlive = 0;
std::atomic<void (*)()> beforeEveryCall = nullptr;
std::atomic<long long> ticksInside = 0;

/// Counts the ticks of one call.
class Stopwatch {
public:
    Stopwatch() : m_begun(Now()) {}
    ~Stopwatch() { ticksInside += Now() - m_begun; }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    static long long Now()
    {
        LARGE_INTEGER now{};
        QueryPerformanceCounter(&now);
        return now.QuadPart;
    }
    long long m_begun;
};

bool IsInjected(const HostError& error)
{
    const std::string ending = " was made to fail", text = error.Description();
    return text.size() > ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

HRESULT RaiseException(const HostError& error, EXCEPINFO* exception)
{
    if (exception != nullptr) {
        *exception = EXCEPINFO{};
        exception->bstrSource = SysAllocString(L"SmTestHost");
        exception->bstrDescription = SysAllocString(windows::Wide(error.Description()).c_str());
        exception->scode = E_FAIL;
    }
    return DISP_E_EXCEPTION;
}

/// A call that succeeds, with an answer that no operation of the model gives.
HRESULT AnswerWrongly(OwnedVariant wrong, const Invocation& call, VARIANT* result)
{
    call.AnswerAll(wrong.Raw());
    if (result != nullptr)
        *result = wrong.Detach();
    return S_OK;
}

/// A value of that type with all its bits zero: for those that point at something, nothing.
OwnedVariant Nothing(VARTYPE type)
{
    OwnedVariant nothing;
    V_VT(&nothing.Raw()) = type;
    if (type == VT_ERROR)
        V_ERROR(&nothing.Raw()) = DISP_E_PARAMNOTFOUND;
    return nothing;
}

HRESULT Fail(const HostError& error, const Invocation& call, VARIANT* result, EXCEPINFO* exception)
{
    std::vector<OwnedVariant> none;
    OwnedVariant date;
    V_VT(&date.Raw()) = VT_DATE;
    V_DATE(&date.Raw()) = 36526;
    switch (IsInjected(error) ? shownAs.load() : Failure::Exception) {
    case Failure::Unspecified:
        return E_FAIL;
    case Failure::Disconnected:
        return RPC_E_DISCONNECTED;
    case Failure::WrongType:
        return AnswerWrongly(std::move(date), call, result);
    case Failure::EmptyArray:
        return AnswerWrongly(windows::ArrayOf(VT_VARIANT, none), call, result);
    case Failure::Empty:
        return AnswerWrongly(Nothing(VT_EMPTY), call, result);
    case Failure::Null:
        return AnswerWrongly(Nothing(VT_NULL), call, result);
    case Failure::NoObject:
        return AnswerWrongly(Nothing(VT_DISPATCH), call, result);
    case Failure::NoUnknown:
        return AnswerWrongly(Nothing(VT_UNKNOWN), call, result);
    case Failure::NoText:
        return AnswerWrongly(Nothing(VT_BSTR), call, result);
    case Failure::LeftOut:
        return AnswerWrongly(Nothing(VT_ERROR), call, result);
    default:
        return RaiseException(error, exception);
    }
}

} // namespace

void ShowFailuresAs(Failure failure)
{
    shownAs = failure;
}

void BeforeEveryCall(void (*hook)())
{
    beforeEveryCall = hook;
}

bool SameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

VARIANT& Invocation::Raw(unsigned index) const
{
    if (index >= m_parameters.cArgs)
        throw HostError("Parameter not optional");
    return m_parameters.rgvarg[m_parameters.cArgs - 1 - index];
}

bool Invocation::IsGiven(unsigned index) const
{
    return index < Count() && !(V_VT(&Raw(index)) == VT_ERROR && V_ERROR(&Raw(index)) == DISP_E_PARAMNOTFOUND);
}

void Invocation::Answer(unsigned index, OwnedVariant value) const
{
    VARIANT& place = Raw(index);
    switch (V_VT(&place)) {
    case VT_BYREF | VT_VARIANT:
        VariantClear(V_VARIANTREF(&place));
        *V_VARIANTREF(&place) = value.Detach();
        return;
    case VT_BYREF | VT_R8:
        *V_R8REF(&place) = windows::ToDouble(value.Raw());
        return;
    case VT_BYREF | VT_BOOL:
        *V_BOOLREF(&place) = windows::ToBoolean(value.Raw()) ? VARIANT_TRUE : VARIANT_FALSE;
        return;
    default:
        throw HostError("Type mismatch");
    }
}

void Invocation::AnswerAll(const VARIANT& value) const
{
    for (unsigned i = 0; i < Count(); ++i) {
        if (V_VT(&Raw(i)) == (VT_BYREF | VT_VARIANT))
            VariantCopy(V_VARIANTREF(&Raw(i)), const_cast<VARIANT*>(&value));
    }
}

TestObject::TestObject()
{
    ++objectsAlive;
}

TestObject::~TestObject()
{
    --objectsAlive;
}

long TestObject::Alive()
{
    return objectsAlive;
}

HRESULT STDMETHODCALLTYPE TestObject::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(id, IID_IUnknown) && !IsEqualGUID(id, IID_IDispatch) && !IsEqualGUID(id, kBehindId))
        return E_NOINTERFACE;
    AddRef();
    *object = IsEqualGUID(id, kBehindId) ? static_cast<void*>(this) : static_cast<void*>(static_cast<IDispatch*>(this));
    return S_OK;
}

ULONG STDMETHODCALLTYPE TestObject::AddRef()
{
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG STDMETHODCALLTYPE TestObject::Release()
{
    const long left = InterlockedDecrement(&m_references);
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

HRESULT STDMETHODCALLTYPE TestObject::GetTypeInfoCount(UINT* count)
{
    if (count == nullptr)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestObject::GetTypeInfo(UINT, LCID, ITypeInfo**)
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE TestObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (names == nullptr || ids == nullptr || count == 0)
        return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const int found = Find(windows::Utf8(names[0]));
    if (found >= 0)
        ids[0] = found + 1; // 0 is the value of an object itself
    return found >= 0 && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE TestObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                             VARIANT* result, EXCEPINFO* exception, UINT*)
{
    if (parameters == nullptr)
        return E_POINTER;
    if (const auto hook = beforeEveryCall.load())
        hook();
    const Stopwatch stopwatch;
    Invocation call(*parameters);
    try {
        OwnedVariant answer;
        if (!Run(id - 1, kind, call, answer))
            return DISP_E_MEMBERNOTFOUND;
        if (result != nullptr)
            *result = answer.Detach();
        return S_OK;
    } catch (const HostError& error) {
        return Fail(error, call, result, exception);
    } catch (...) {
        return E_UNEXPECTED;
    }
}

long long TestObject::TicksInside()
{
    return ticksInside;
}

TestObject* TestObject::Behind(IDispatch* object)
{
    if (object == nullptr)
        return nullptr;
    void* found = nullptr;
    if (FAILED(object->QueryInterface(kBehindId, &found)))
        throw HostError("Invalid argument");
    auto* const behind = static_cast<TestObject*>(found);
    behind->Release(); // `object` keeps it
    return behind;
}

} // namespace sm::testhost
