// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/AutomationErrors.h"

#include "windows/automation/WideText.h"

#include <array>
#include <charconv>
#include <oleauto.h>

namespace sm::windows {
namespace {

std::string Unknown(HRESULT result)
{
    std::array<char, 16> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<unsigned long>(result), 16);
    return "Automation error 0x" + std::string(digits.data(), end.ptr);
}

std::string Taken(BSTR& text)
{
    const std::string taken = text == nullptr ? std::string() : Utf8({text, SysStringLen(text)});
    SysFreeString(text);
    text = nullptr;
    return taken;
}

} // namespace

std::string TextOfResult(HRESULT result)
{
    wchar_t* found = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&found), 0, nullptr);
    std::string text = Utf8({found == nullptr ? L"" : found, length});
    LocalFree(found);
    text.erase(text.find_last_not_of("\r\n ") + 1);
    return text.empty() ? Unknown(result) : text;
}

HostError ErrorOfCall(HRESULT result, EXCEPINFO& exception)
{
    if (result == DISP_E_EXCEPTION && exception.pfnDeferredFillIn != nullptr)
        exception.pfnDeferredFillIn(&exception);
    Taken(exception.bstrSource);
    Taken(exception.bstrHelpFile);
    const std::string description = Taken(exception.bstrDescription);
    if (result != DISP_E_EXCEPTION)
        return HostError(TextOfResult(result));
    if (!description.empty())
        return HostError(description);
    return HostError(TextOfResult(FAILED(exception.scode) ? exception.scode : result));
}

void ThrowTypeMismatch()
{
    throw HostError(TextOfResult(DISP_E_TYPEMISMATCH));
}

bool IsDisconnected(HRESULT result)
{
    return result == RPC_E_DISCONNECTED || result == RPC_E_SERVER_DIED || result == RPC_E_SERVER_DIED_DNE ||
           result == RPC_E_CONNECTION_TERMINATED || result == CO_E_OBJNOTCONNECTED ||
           result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) || result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE);
}

bool IsBusy(HRESULT result)
{
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
}

} // namespace sm::windows
