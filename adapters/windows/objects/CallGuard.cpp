// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/CallGuard.h"

#include "ports/HostError.h"
#include "windows/automation/ComRef.h"
#include "windows/automation/Values.h"

#include <new>

namespace sm::windows {
namespace {

/// What the caller of the failed call may ask for; without memory for it, the result alone has to do.
void Describe(REFIID interfaceId, const char* source, const char* description)
{
    ComRef<ICreateErrorInfo> made;
    ComRef<IErrorInfo> error;
    if (FAILED(CreateErrorInfo(made.Receive())) ||
        FAILED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(error.Receive()))))
        return;
    std::wstring wideSource = Wide(source), wideDescription = Wide(description);
    made->SetGUID(interfaceId);
    made->SetSource(wideSource.data());
    made->SetDescription(wideDescription.data());
    SetErrorInfo(0, error.Get());
}

HRESULT Failed(HRESULT result, REFIID interfaceId, const char* source, const char* description) noexcept
{
    try {
        Describe(interfaceId, source, description);
    } catch (...) {
        SetErrorInfo(0, nullptr);
    }
    return result;
}

} // namespace

HRESULT ResultOfException(REFIID interfaceId, const char* source) noexcept
{
    try {
        throw;
    } catch (const BadArgument& error) {
        return Failed(error.Result(), interfaceId, source, error.what());
    } catch (const std::bad_alloc&) {
        return Failed(E_OUTOFMEMORY, interfaceId, source, "There is not enough memory");
    } catch (const std::exception& error) {
        return Failed(E_FAIL, interfaceId, source, error.what());
    } catch (...) {
        return Failed(E_UNEXPECTED, interfaceId, source, "Something unforeseen went wrong");
    }
}

BSTR NewText(const std::string& text)
{
    const std::wstring wide = Wide(text);
    const BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (made == nullptr)
        throw std::bad_alloc();
    return made;
}

std::string TextOf(BSTR text)
{
    return text == nullptr ? std::string() : Utf8({text, SysStringLen(text)});
}

VARIANT NewValue(const AcadVariant& value)
{
    return FromAcadVariant(value).Detach();
}

} // namespace sm::windows
