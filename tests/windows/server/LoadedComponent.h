// SPDX-License-Identifier: GPL-3.0-or-later
// The component, loaded as COM loads it, without being registered.
#pragma once

#include "windows/automation/ComRef.h"

#include <windows.h>

#include <TarnwickSmPubAcad.h>
#include <gtest/gtest.h>
#include <string>

namespace sm::windows {

/// COM on this thread, as scripts and forms use it.
struct Apartment {
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class LoadedComponent {
public:
    LoadedComponent() : m_module(LoadLibraryA(SM_COMPONENT)) { EXPECT_NE(m_module, nullptr) << SM_COMPONENT; }
    ~LoadedComponent() { FreeLibrary(m_module); }
    LoadedComponent(const LoadedComponent&) = delete;
    LoadedComponent& operator=(const LoadedComponent&) = delete;

    template <class Function> Function* Export(const char* name) const
    {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }
    ComRef<IClassFactory> Factory(REFCLSID classId) const
    {
        ComRef<IClassFactory> factory;
        Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            classId, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive()));
        return factory;
    }
    template <class Interface> ComRef<Interface> Make(REFCLSID classId) const
    {
        ComRef<Interface> object;
        Factory(classId)->CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(object.Receive()));
        return object;
    }
    [[nodiscard]] HRESULT CanUnload() const { return Export<HRESULT WINAPI()>("DllCanUnloadNow")(); }

private:
    HMODULE m_module;
};

} // namespace sm::windows
