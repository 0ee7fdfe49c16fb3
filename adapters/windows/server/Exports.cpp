// What the system calls of the component.
#include <windows.h>

#include <objbase.h>

STDAPI DllCanUnloadNow()
{
    return S_OK;
}

STDAPI DllGetClassObject(REFCLSID /*classId*/, REFIID /*interfaceId*/, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}
