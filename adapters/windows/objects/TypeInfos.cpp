// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/TypeInfos.h"

#include "windows/system/OwnModule.h"

#include <mutex>
#include <oleauto.h>

namespace sm::windows {

std::shared_ptr<TypeInfos> TypeInfos::Shared()
{
    static std::mutex reading;
    static std::weak_ptr<TypeInfos> shared;
    const std::scoped_lock lock(reading);
    auto infos = shared.lock();
    if (!infos) {
        ComRef<ITypeLib> library;
        if (FAILED(LoadTypeLibEx(OwnModulePath().c_str(), REGKIND_NONE, library.Receive())))
            return nullptr;
        infos = std::make_shared<TypeInfos>(std::move(library));
        shared = infos;
    }
    return infos;
}

ComRef<ITypeInfo> TypeInfos::Of(REFIID interfaceId)
{
    ComRef<ITypeInfo> info;
    m_library->GetTypeInfoOfGuid(interfaceId, info.Receive());
    return info;
}

namespace {

/// Arguments that a caller gives; the place of the result is none.
UINT PlacesOf(const FUNCDESC& function)
{
    const auto places = static_cast<UINT>(function.cParams);
    const bool returns =
        places > 0 && (function.lprgelemdescParam[places - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    return returns ? places - 1 : places;
}

/// By value or by reference.
bool IsObject(const TYPEDESC& type)
{
    return type.vt == VT_PTR ? IsObject(*type.lptdesc) : type.vt == VT_DISPATCH;
}

} // namespace

bool MayTake(ITypeInfo& described, DISPID member, WORD kind, UINT arguments)
{
    bool found = false, fits = false;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; !fits && SUCCEEDED(described.GetFuncDesc(i, &function)); ++i) {
        if (function->memid == member && (static_cast<WORD>(function->invkind) & kind) != 0) {
            found = true;
            fits = arguments <= PlacesOf(*function);
        }
        described.ReleaseFuncDesc(function);
    }
    return fits || !found;
}

std::vector<bool> ObjectPlaces(ITypeInfo& described, DISPID member, WORD kind)
{
    std::vector<bool> places;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; places.empty() && SUCCEEDED(described.GetFuncDesc(i, &function)); ++i) {
        if (function->memid == member && (static_cast<WORD>(function->invkind) & kind) != 0)
            for (UINT place = 0; place < PlacesOf(*function); ++place)
                places.push_back(IsObject(function->lprgelemdescParam[place].tdesc));
        described.ReleaseFuncDesc(function);
    }
    return places;
}

} // namespace sm::windows
