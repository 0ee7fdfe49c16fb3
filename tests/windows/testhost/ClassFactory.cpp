// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/ClassFactory.h"

#include <array>
#include <objbase.h>

namespace sm::testhost {
namespace {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class Factory final : public IClassFactory {
public:
    explicit Factory(MakeObject make) : m_make(std::move(make)) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IClassFactory);
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&m_references)); }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const long left = InterlockedDecrement(&m_references);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        try {
            const windows::ComRef<IDispatch> made = m_make();
            return made ? made->QueryInterface(id, object) : E_FAIL;
        } catch (...) {
            return E_FAIL;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override { return CoLockObjectExternal(this, lock, TRUE); }

private:
    MakeObject m_make;
    long m_references = 1;
};
#pragma GCC diagnostic pop

std::wstring TextOf(const GUID& id)
{
    std::array<wchar_t, 64> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

bool Put(const std::wstring& key, const wchar_t* name, const std::wstring& text)
{
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), bytes) == ERROR_SUCCESS;
}

} // namespace

IClassFactory* NewClassFactory(MakeObject make)
{
    return new Factory(std::move(make));
}

bool RegisterName(const std::wstring& progId, const GUID& id, const std::wstring& serverKey, const std::wstring& path)
{
    const std::wstring classKey = L"CLSID\\" + TextOf(id);
    if (!Put(progId + L"\\CLSID", nullptr, TextOf(id)))
        return false;
    if (path.empty())
        return true;
    const std::wstring server = classKey + L"\\" + serverKey;
    return Put(classKey, nullptr, progId) && Put(classKey + L"\\ProgID", nullptr, progId) &&
           Put(server, nullptr, path) && Put(server, L"ThreadingModel", L"Apartment");
}

void UnregisterName(const std::wstring& progId, const GUID& id)
{
    RegDeleteTreeW(HKEY_CLASSES_ROOT, progId.c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + TextOf(id)).c_str());
}

} // namespace sm::testhost
